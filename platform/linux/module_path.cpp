#include "platform/module_path.h"

#include <dlfcn.h>

#include <system_error>

namespace mavrin2::platform {

std::filesystem::path PathOfModule(const void* address) {
    Dl_info info{};
    if (!dladdr(address, &info) || !info.dli_fname) return {};
    std::error_code error;
    return std::filesystem::canonical(info.dli_fname, error);
}

}  // namespace mavrin2::platform
