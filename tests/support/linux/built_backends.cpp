#include "tests/support/built_backends.h"

#include "companions/backends/loaded_backends.h"

namespace mavrin2::tests {

std::shared_ptr<const backends::Backends> BuiltBackends(const char* companion) {
    return std::make_shared<backends::LoadedBackends>(companion, platform::SystemModuleLoader(),
                                                      BACKEND_FOLDER);
}

}  // namespace mavrin2::tests
