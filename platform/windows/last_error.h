#pragma once

#include <system_error>

#include "platform/automation.h"

namespace mavrin2::platform {

// The error of the last failed system call.
inline std::error_code LastError() {
    return {static_cast<int>(::GetLastError()), std::system_category()};
}

}  // namespace mavrin2::platform
