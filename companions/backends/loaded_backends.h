#pragma once

#include <filesystem>

#include "companions/backends/backends.h"

namespace mavrin2::backends {

// Backends in modules, each loaded when it is first needed, since libraries of this size take
// milliseconds to load. Any thread.
class LoadedBackends final : public Backends {
public:
    // `companion` is the name of its folder. `folder`, an absolute path, holds the modules.
    LoadedBackends(std::string companion, std::shared_ptr<platform::ModuleLoader> loader,
                   std::filesystem::path folder)
        : companion_(std::move(companion)),
          loader_(std::move(loader)),
          folder_(std::move(folder)) {}

private:
    platform::Module::Function Function(const std::string& backend, const std::string& offer,
                                        std::string& reason) const override;

    std::string companion_;
    std::shared_ptr<platform::ModuleLoader> loader_;
    std::filesystem::path folder_;
};

// The modules in the folder of the module that holds this address.
std::shared_ptr<const Backends> BesideModule(std::string companion, const void* inside);

}  // namespace mavrin2::backends
