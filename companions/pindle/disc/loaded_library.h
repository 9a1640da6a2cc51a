#pragma once

#include <filesystem>
#include <memory>

#include "companions/pindle/disc/disc.h"
#include "platform/module_loader.h"

namespace mavrin2::pindle {

// The module around the CD library in `folder`, loaded when this is called first. Null if it or the
// library is missing.
const DiscLibrary* LoadDiscLibrary(platform::ModuleLoader& loader,
                                   const std::filesystem::path& folder);

}  // namespace mavrin2::pindle
