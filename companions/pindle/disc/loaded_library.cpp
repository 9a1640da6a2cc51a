#include "companions/pindle/disc/loaded_library.h"

namespace mavrin2::pindle {

const DiscLibrary* LoadDiscLibrary(platform::ModuleLoader& loader,
                                   const std::filesystem::path& folder) {
    std::string reason;
    const auto module = loader.Load(folder / "libmavrin2-pindle-cdio.so", reason);
    const auto entry = module ? module->Find(kLibraryEntry) : nullptr;
    return entry ? reinterpret_cast<const DiscLibrary* (*)()>(entry)() : nullptr;
}

}  // namespace mavrin2::pindle
