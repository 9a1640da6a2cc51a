#pragma once

#include <cerrno>
#include <system_error>

namespace mavrin2::platform {

// What the last call that failed has left in `errno`.
inline std::error_code LastError() {
    return {errno, std::generic_category()};
}

}  // namespace mavrin2::platform
