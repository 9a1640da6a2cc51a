#pragma once

#include <filesystem>

namespace mavrin2::platform {

// The full path of the loaded module (library or program) that holds this address of code or data;
// empty when none does.
std::filesystem::path PathOfModule(const void* address);

}  // namespace mavrin2::platform
