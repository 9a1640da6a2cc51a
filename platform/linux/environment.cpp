#include "platform/environment.h"

#include <stdlib.h>

namespace mavrin2::platform {

void SetEnvironmentVariable(const std::string& name, const std::string& value) {
    ::setenv(name.c_str(), value.c_str(), 1);
}

}  // namespace mavrin2::platform
