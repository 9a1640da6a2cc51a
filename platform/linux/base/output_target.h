#pragma once

#include <filesystem>
#include <system_error>

namespace mavrin2::platform {

// The name under which a file for `path` is created: symbolic links followed, also one that leads
// to no file yet. Empty, and why in `error`, if no plain file can have it or replace what has it.
std::filesystem::path OutputTarget(const std::filesystem::path& path, std::error_code& error);

}  // namespace mavrin2::platform
