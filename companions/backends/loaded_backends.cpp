#include "companions/backends/loaded_backends.h"

#include "platform/module_path.h"

namespace mavrin2::backends {

platform::Module::Function LoadedBackends::Function(const std::string& backend,
                                                    const std::string& offer,
                                                    std::string& reason) const {
    const std::string name = companion_ + "-" + backend;
    const auto module = loader_->Load(folder_ / ("libmavrin2-" + name + ".so"), reason);
    if (!module) return nullptr;
    const auto function =
        module->Find(("Mavrin2_" + companion_ + "_" + backend + "_" + offer).c_str());
    if (!function) reason = name + " has no " + offer;
    return function;
}

std::shared_ptr<const Backends> BesideModule(std::string companion, const void* inside) {
    return std::make_shared<LoadedBackends>(std::move(companion), platform::SystemModuleLoader(),
                                            platform::PathOfModule(inside).parent_path());
}

}  // namespace mavrin2::backends
