#include "platform/module_type_library.h"

#include "platform/module_path.h"

namespace mavrin2::platform {
namespace {

// What a library was compiled for; one built for the other width is another registration.
constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

}  // namespace

HRESULT LoadModuleTypeLibrary(const void* address, ITypeLib** library) {
    *library = nullptr;
    return ::LoadTypeLibEx(PathOfModule(address).c_str(), REGKIND_NONE, library);
}

HRESULT RegisterModuleTypeLibrary(const void* address) {
    ITypeLib* library = nullptr;
    if (const HRESULT status = LoadModuleTypeLibrary(address, &library); FAILED(status))
        return status;
    std::wstring path = PathOfModule(address).wstring();
    const HRESULT status = ::RegisterTypeLib(library, path.data(), nullptr);
    library->Release();
    return status;
}

HRESULT UnregisterTypeLibrary(REFGUID id, WORD major, WORD minor) {
    BSTR path = nullptr;
    const HRESULT known = ::QueryPathOfRegTypeLib(id, major, minor, LOCALE_NEUTRAL, &path);
    ::SysFreeString(path);
    // The system takes what is not there for a failure, unlike a missing key.
    if (FAILED(known)) return S_OK;
    return ::UnRegisterTypeLib(id, major, minor, LOCALE_NEUTRAL, kSystem);
}

}  // namespace mavrin2::platform
