#pragma once

#include <string>

namespace mavrin2::script {

// What a file that is no sound file in a known format seems to be, as the end of a message; empty
// where that is not clear.
std::string AppearanceOf(const std::string& file);

// The end of a message about a folder that cannot be written to: that it has no space left, if so.
std::string SpaceHint(const std::string& folder);

// Throws Failure, with the system's reason, unless `file` is a regular file that can be read.
void CheckReadable(const std::string& file);

}  // namespace mavrin2::script
