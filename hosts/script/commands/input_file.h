#pragma once

#include <string>

namespace mavrin2::script {

// Throws Failure, with the system's reason, unless `file` is a regular file that can be read.
void CheckReadable(const std::string& file);

}  // namespace mavrin2::script
