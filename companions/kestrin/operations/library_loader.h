#pragma once

#include <filesystem>
#include <memory>

#include "companions/kestrin/kernels/libraries.h"
#include "platform/module_loader.h"

namespace mavrin2::kestrin {

// The modules around the libraries, each loaded when it is first needed and never unloaded.
class LibraryLoader final : public Libraries {
public:
    // `folder`, an absolute path, holds the modules.
    LibraryLoader(std::shared_ptr<platform::ModuleLoader> modules, std::filesystem::path folder)
        : modules_(std::move(modules)), folder_(std::move(folder)) {}

    std::unique_ptr<Fourier> MakeFourier(std::size_t size) const override;
    std::unique_ptr<ComplexFourier> MakeComplexFourier(std::size_t size) const override;
    std::unique_ptr<RateConverter> MakeRateConverter(double ratio) const override;

private:
    const FourierMaker& Transforms() const;
    platform::Module::Function Entry(const char* name, const char* entry) const;

    std::shared_ptr<platform::ModuleLoader> modules_;
    std::filesystem::path folder_;
};

}  // namespace mavrin2::kestrin
