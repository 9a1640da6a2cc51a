#pragma once

#include <filesystem>

namespace mavrin2::platform {

// Gives the open file `target` the permissions, owner, group and extended attributes of the file
// `source`. False if one of them could not be given, other than labels that the system itself
// keeps.
bool CopyAttributes(const std::filesystem::path& source, int target);

}  // namespace mavrin2::platform
