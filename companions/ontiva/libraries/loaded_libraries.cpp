#include "companions/ontiva/libraries/loaded_libraries.h"

namespace mavrin2::ontiva {

platform::Module::Function LoadedLibraries::Entry(const std::string& name) const {
    std::string reason;
    const auto module = loader_->Load(folder_ / ("libmavrin2-ontiva-" + name + ".so"), reason);
    const auto entry = module ? module->Find(kLibraryEntry) : nullptr;
    if (!entry) throw MissingLibrary("cannot load a library: " + reason);
    return entry;
}

}  // namespace mavrin2::ontiva
