#include "companions/backends/linked_backends.h"

namespace mavrin2::backends {

// libcdio cannot be had for Windows yet, so the companion finds no drives there.
std::shared_ptr<const Backends> OfThisModule() {
    return std::make_shared<LinkedBackends>(std::span<const LinkedBackends::Entry>());
}

}  // namespace mavrin2::backends
