#pragma once

#include "automation/counted.h"
#include "automation/interface_description.h"

namespace mavrin2::automation {

// The type information that an object returns: from the type library compiled into this module
// where the system has such, otherwise from the one made of the descriptions. Both say the same.
// They throw StatusError when the library is missing or does not know what is asked for.

// The type information of one interface within its library; empty when it belongs to none.
ComPtr<ITypeInfo> TypeInformationOf(const InterfaceDescription& description);

// The same for the class of that identifier.
ComPtr<ITypeInfo> TypeInformationOfClass(const LibraryDescription& library, REFCLSID id);

// The class of an object and the events that it raises by default.
class ClassInformation final : public InterfacePart<IProvideClassInfo2> {
public:
    ClassInformation(IUnknown* identity, const LibraryDescription& (*library)(), REFCLSID id)
        : InterfacePart(identity), library_(library), id_(id) {}

    STDMETHODIMP GetClassInfo(ITypeInfo** information) override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override;

private:
    const LibraryDescription& (*library_)();
    const CLSID& id_;
};

}  // namespace mavrin2::automation
