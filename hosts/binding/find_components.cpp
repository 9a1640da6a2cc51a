#include "hosts/binding/find_components.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/environment.h"
#include "platform/module_path.h"

namespace mavrin2::binding {

void FindComponents() {
    constexpr const char* kVariable = "MAVRIN2_REGISTRY";
    const char* const given = std::getenv(kVariable);
    if (given && *given) return;
    const auto program = platform::PathOfModule(reinterpret_cast<const void*>(&FindComponents));
    if (program.empty()) return;
    const auto registry = program.parent_path().parent_path() / "lib" / "mavrin2-components";
    std::error_code error;
    if (std::filesystem::exists(registry, error))
        platform::SetEnvironmentVariable(kVariable, registry.string());
}

}  // namespace mavrin2::binding
