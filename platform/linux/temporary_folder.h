#pragma once

#include <filesystem>

namespace mavrin2::platform {

// A folder below `$TMPDIR` or `/tmp` that only this user can enter, made where it is missing; ends
// in a slash. The same one for every process of the user with the same `$TMPDIR`. Where somebody
// else has planted something under its name the next name is taken; empty when none is left.
std::filesystem::path PrivateTemporaryFolder();

}  // namespace mavrin2::platform
