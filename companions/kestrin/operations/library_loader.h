#pragma once

#include <filesystem>

#include "companions/kestrin/kernels/libraries.h"

namespace mavrin2::kestrin {

// The modules around the libraries, each loaded when it is first needed and never unloaded.
class LibraryLoader final : public Libraries {
public:
    // `folder` holds the modules.
    explicit LibraryLoader(std::filesystem::path folder) : folder_(std::move(folder)) {}

    std::unique_ptr<Fourier> MakeFourier(std::size_t size) const override;
    std::unique_ptr<RateConverter> MakeRateConverter(double ratio) const override;

private:
    void* Symbol(const char* module, const char* entry) const;

    std::filesystem::path folder_;
};

}  // namespace mavrin2::kestrin
