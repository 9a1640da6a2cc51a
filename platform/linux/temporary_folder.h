#pragma once

#include <filesystem>

namespace mavrin2::platform {

// The private folder in `$TMPDIR`, or in `/tmp` where that takes none; ends in a slash. The same
// for every process of the user with the same `$TMPDIR`. Empty if neither takes a folder.
std::filesystem::path PrivateTemporaryFolder();

}  // namespace mavrin2::platform
