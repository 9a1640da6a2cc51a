#pragma once

#include <string>

namespace mavrin2::platform {

// Sets a variable of this process's environment, which modules loaded later and programs started
// later see. Not while another thread reads the environment.
void SetEnvironmentVariable(const std::string& name, const std::string& value);

}  // namespace mavrin2::platform
