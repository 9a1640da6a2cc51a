#pragma once

#include <filesystem>
#include <memory>

#include "companions/ontiva/libraries/libraries.h"
#include "platform/module_loader.h"

namespace mavrin2::ontiva {

// The modules around the libraries, each loaded when a file first needs it.
class LoadedLibraries final : public Libraries {
public:
    // `folder` holds the modules.
    LoadedLibraries(std::shared_ptr<platform::ModuleLoader> loader, std::filesystem::path folder)
        : loader_(std::move(loader)), folder_(std::move(folder)) {}

    const TagLibrary& Tags() const override { return Find<TagLibrary>("taglib"); }
    const FlacLibrary& Flac() const override { return Find<FlacLibrary>("flac"); }
    const ContainerLibrary& Containers() const override {
        return Find<ContainerLibrary>("avformat");
    }

private:
    template <class Library>
    const Library& Find(const char* name) const {
        return *reinterpret_cast<const Library* (*)()>(Entry(name))();
    }
    platform::Module::Function Entry(const std::string& name) const;

    std::shared_ptr<platform::ModuleLoader> loader_;
    std::filesystem::path folder_;
};

}  // namespace mavrin2::ontiva
