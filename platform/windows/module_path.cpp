#include "platform/module_path.h"

#include <string>

#include "platform/automation.h"

namespace mavrin2::platform {

std::filesystem::path PathOfModule(const void* address) {
    HMODULE module = nullptr;
    // The system would take none for the program.
    if (!address || !::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                              GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                                          static_cast<const wchar_t*>(address), &module)) {
        return {};
    }
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            ::GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

}  // namespace mavrin2::platform
