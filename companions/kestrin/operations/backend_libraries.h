#pragma once

#include <memory>

#include "companions/backends/backends.h"
#include "companions/kestrin/kernels/libraries.h"

namespace mavrin2::kestrin {

// The libraries of the companion's backends.
class BackendLibraries final : public Libraries {
public:
    explicit BackendLibraries(std::shared_ptr<const backends::Backends> backends)
        : backends_(std::move(backends)) {}

    std::unique_ptr<Fourier> MakeFourier(std::size_t size) const override;
    std::unique_ptr<ComplexFourier> MakeComplexFourier(std::size_t size) const override;
    std::unique_ptr<RateConverter> MakeRateConverter(double ratio) const override;

private:
    const FourierMaker& Transforms() const;

    std::shared_ptr<const backends::Backends> backends_;
};

}  // namespace mavrin2::kestrin
