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

}  // namespace mavrin2::automation
