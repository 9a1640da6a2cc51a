#include "hosts/script/process/component_finder.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace mavrin2::script {

void FindComponents() {
    constexpr const char* kVariable = "MAVRIN2_REGISTRY";
    const char* const given = std::getenv(kVariable);
    if (given && *given) return;
    std::error_code error;
    const auto program = std::filesystem::canonical("/proc/self/exe", error);
    if (error) return;
    const auto registry = program.parent_path().parent_path() / "lib" / "mavrin2-components";
    if (std::filesystem::exists(registry, error)) ::setenv(kVariable, registry.c_str(), 1);
}

}  // namespace mavrin2::script
