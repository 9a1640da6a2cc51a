#include "automation/type_information.h"

#include "automation/guarded.h"
#include "automation/module.h"
#include "automation/type_library.h"
#include "platform/module_type_library.h"

namespace mavrin2::automation {
namespace {

ComPtr<ITypeInfo> Find(const LibraryDescription& description, REFGUID id) {
    ComPtr<ITypeLib> library;
    ThrowIfFailed(platform::LoadModuleTypeLibrary(&ModuleLocks::OfThisModule(), library.Put()));
    if (!library) library = MakeTypeLibrary(description);
    ComPtr<ITypeInfo> found;
    ThrowIfFailed(library->GetTypeInfoOfGuid(id, found.Put()));
    return found;
}

}  // namespace

ComPtr<ITypeInfo> TypeInformationOf(const InterfaceDescription& description) {
    if (!description.Library) return nullptr;
    return Find(description.Library(), description.Id);
}

ComPtr<ITypeInfo> TypeInformationOfClass(const LibraryDescription& library, REFCLSID id) {
    return Find(library, id);
}

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
