#include "tests/platform/linux/modules/counting_class.h"

namespace {

// Both live for ever; the counts are only reported to the caller.
template <typename Interface>
class Counted : public Interface {
public:
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override { return --references_; }

private:
    ULONG references_ = 0;
};

class Object final : public Counted<IUnknown> {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = iid == IID_IUnknown ? this : nullptr;
        if (*object == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
};

class Factory final : public Counted<IClassFactory> {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = iid == IID_IUnknown || iid == IID_IClassFactory ? this : nullptr;
        if (*object == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        static Object instance;
        return instance.QueryInterface(iid, object);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

}  // namespace

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* object) {
    static Factory factory;
    *object = nullptr;
    return clsid == CLSID_Counting ? factory.QueryInterface(iid, object)
                                   : CLASS_E_CLASSNOTAVAILABLE;
}
