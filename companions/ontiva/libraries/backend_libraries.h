#pragma once

#include <memory>

#include "companions/backends/backends.h"
#include "companions/ontiva/libraries/libraries.h"

namespace mavrin2::ontiva {

// The libraries of the companion's backends.
class BackendLibraries final : public Libraries {
public:
    explicit BackendLibraries(std::shared_ptr<const backends::Backends> backends)
        : backends_(std::move(backends)) {}

    const TagLibrary& Tags() const override;
    const FlacLibrary& Flac() const override;
    const ContainerLibrary& Containers() const override;

private:
    std::shared_ptr<const backends::Backends> backends_;
};

}  // namespace mavrin2::ontiva
