#pragma once

#include "automation/object.h"

namespace mavrin2::automation {

// Tells a host which class an object is of and which events it raises by default.
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
