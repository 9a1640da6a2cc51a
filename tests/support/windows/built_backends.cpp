#include "tests/support/built_backends.h"

namespace mavrin2::tests {

std::shared_ptr<const backends::Backends> BuiltBackends(const char*) {
    return backends::OfThisModule();
}

}  // namespace mavrin2::tests
