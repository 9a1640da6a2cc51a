#include "platform/module_path.h"

#include <dlfcn.h>
#include <link.h>

#include <system_error>

namespace mavrin2::platform {

std::filesystem::path PathOfModule(const void* address) {
    Dl_info info = {};
    link_map* module = nullptr;
    if (::dladdr1(address, &info, reinterpret_cast<void**>(&module), RTLD_DL_LINKMAP) == 0 ||
        module == nullptr) {
        return {};
    }
    std::error_code error;
    // The program itself has no name there.
    auto path = module->l_name[0] == '\0' ? std::filesystem::read_symlink("/proc/self/exe", error)
                                          : std::filesystem::absolute(module->l_name, error);
    return error ? std::filesystem::path() : path;
}

}  // namespace mavrin2::platform
