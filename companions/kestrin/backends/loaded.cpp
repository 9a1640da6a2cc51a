#include "companions/backends/loaded_backends.h"

namespace mavrin2::backends {

std::shared_ptr<const Backends> OfThisModule() {
    static const int here = 0;
    return BesideModule("kestrin", &here);
}

}  // namespace mavrin2::backends
