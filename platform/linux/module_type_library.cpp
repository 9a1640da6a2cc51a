#include "platform/module_type_library.h"

namespace mavrin2::platform {

HRESULT LoadModuleTypeLibrary(const void*, ITypeLib** library) {
    *library = nullptr;
    return S_FALSE;
}

HRESULT RegisterModuleTypeLibrary(const void*) {
    return S_OK;
}

HRESULT UnregisterTypeLibrary(REFGUID, WORD, WORD) {
    return S_OK;
}

}  // namespace mavrin2::platform
