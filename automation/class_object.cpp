#include "automation/class_object.h"

#include <atomic>

namespace mavrin2::automation {
namespace {

class ClassObject final : public IClassFactory {
public:
    explicit ClassObject(const ClassEntry& entry) : entry_(entry) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (!IsEqualGUID(iid, IID_IUnknown) && !IsEqualGUID(iid, IID_IClassFactory))
            return E_NOINTERFACE;
        AddRef();
        *object = static_cast<IClassFactory*>(this);
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++count_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --count_;
        if (left == 0) delete this;
        return left;
    }

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        return entry_.Create(outer, iid, object);
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        if (lock)
            ModuleLocks::OfThisModule().Add();
        else
            ModuleLocks::OfThisModule().Remove();
        return S_OK;
    }

private:
    ~ClassObject() = default;

    const ClassEntry& entry_;
    std::atomic<ULONG> count_ = 1;
    ModuleLock alive_;
};

}  // namespace

ComPtr<IClassFactory> MakeClassObject(const ClassEntry& entry) {
    return ComPtr<IClassFactory>::Adopt(new ClassObject(entry));
}

}  // namespace mavrin2::automation
