#include "automation/module.h"

#include <algorithm>

#include "automation/counted.h"
#include "automation/guarded.h"

namespace mavrin2::automation {
namespace {

// The standard class factory of one class.
class ClassObject final : public Counted<IClassFactory> {
public:
    explicit ClassObject(const ClassEntry& entry) : entry_(entry) {}

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
    const ClassEntry& entry_;
    ModuleLock alive_;
};

}  // namespace

ModuleLocks& ModuleLocks::OfThisModule() {
    static ModuleLocks locks;
    return locks;
}

HRESULT GetClassObject(const ModuleContents& module, REFCLSID id, REFIID iid, void** object) {
    return Guarded([&]() -> HRESULT {
        if (!object) return E_POINTER;
        *object = nullptr;
        const auto entry = std::ranges::find_if(
            module.Classes, [&](const ClassEntry& c) { return IsEqualGUID(c.Id, id); });
        if (entry == module.Classes.end()) return CLASS_E_CLASSNOTAVAILABLE;
        return MakeCounted<ClassObject>(*entry)->QueryInterface(iid, object);
    });
}

HRESULT CanUnloadNow() {
    return ModuleLocks::OfThisModule().None() ? S_OK : S_FALSE;
}

}  // namespace mavrin2::automation
