#pragma once

#include <utility>

#include "platform/automation.h"

namespace mavrin2::tests {

// An automation object with a default property, that counts its references and lives on the stack.
class FakeObject final : public IDispatch {
public:
    explicit FakeObject(VARIANT value = {}) : value_(value) {}

    ULONG References() const { return references_; }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid == IID_IUnknown) *object = static_cast<IUnknown*>(this);
        if (iid == IID_IDispatch) *object = static_cast<IDispatch*>(this);
        if (*object == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override { return --references_; }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                        EXCEPINFO*, UINT*) override {
        if (member != DISPID_VALUE || (flags & DISPATCH_PROPERTYGET) == 0 ||
            value_.vt == VT_EMPTY) {
            return DISP_E_MEMBERNOTFOUND;
        }
        return VariantCopy(result, &value_);
    }

private:
    VARIANT value_;
    ULONG references_ = 0;
};

}  // namespace mavrin2::tests
