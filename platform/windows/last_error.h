#pragma once

#include <system_error>

#include "platform/automation.h"

namespace mavrin2::platform {

// What the last call of the system that failed has left behind.
inline std::error_code LastError() {
    return {static_cast<int>(::GetLastError()), std::system_category()};
}

}  // namespace mavrin2::platform
