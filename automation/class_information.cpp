#include "automation/class_information.h"

namespace mavrin2::automation {

STDMETHODIMP ClassInformation::GetClassInfo(ITypeInfo** information) {
    return Guarded([&]() -> HRESULT {
        if (!information) return E_POINTER;
        *information = TypeInformationOfClass(library_(), id_).Detach();
        return *information ? S_OK : TYPE_E_ELEMENTNOTFOUND;
    });
}

STDMETHODIMP ClassInformation::GetGUID(DWORD kind, GUID* guid) {
    return Guarded([&]() -> HRESULT {
        if (!guid) return E_POINTER;
        *guid = GUID_NULL;
        if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
        for (const ClassDescription& one : library_().Classes) {
            if (!IsEqualGUID(one.Id, id_) || !one.Source) continue;
            *guid = one.Source().Id;
            return S_OK;
        }
        return E_FAIL;
    });
}

}  // namespace mavrin2::automation
