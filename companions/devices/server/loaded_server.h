#pragma once

#include <filesystem>
#include <memory>

#include "companions/devices/server/sound_server.h"
#include "platform/module_loader.h"

namespace mavrin2::devices {

// The server of the module around the sound library in `folder`, which is loaded now. Null if the
// module or the library is missing.
std::unique_ptr<SoundServer> LoadSoundServer(platform::ModuleLoader& loader,
                                             const std::filesystem::path& folder);

}  // namespace mavrin2::devices
