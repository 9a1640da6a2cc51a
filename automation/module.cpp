#include "automation/module.h"

#include <algorithm>

#include "automation/class_object.h"
#include "automation/guarded.h"

namespace mavrin2::automation {

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
        return MakeClassObject(*entry)->QueryInterface(iid, object);
    });
}

HRESULT CanUnloadNow() {
    return ModuleLocks::OfThisModule().None() ? S_OK : S_FALSE;
}

}  // namespace mavrin2::automation
