#include "companions/devices/server/loaded_server.h"

namespace mavrin2::devices {

std::unique_ptr<SoundServer> LoadSoundServer(platform::ModuleLoader& loader,
                                             const std::filesystem::path& folder) {
    std::string reason;
    const auto module = loader.Load(folder / "libmavrin2-devices-pulse.so", reason);
    const auto entry = module ? module->Find(kServerEntry) : nullptr;
    return std::unique_ptr<SoundServer>(entry ? reinterpret_cast<MakeSoundServer>(entry)("Mavrin2")
                                              : nullptr);
}

}  // namespace mavrin2::devices
