// The entry points of a component, compiled into each.

#include "automation/module.h"
#include "platform/module_export.h"

using mavrin2::automation::ThisModule;

MAVRIN2_MODULE_EXPORT(HRESULT) DllGetClassObject(REFCLSID id, REFIID iid, void** object) {
    return mavrin2::automation::GetClassObject(ThisModule(), id, iid, object);
}

MAVRIN2_MODULE_EXPORT(HRESULT) DllCanUnloadNow() {
    return mavrin2::automation::CanUnloadNow();
}

MAVRIN2_MODULE_EXPORT(HRESULT) DllRegisterServer() {
    return mavrin2::automation::RegisterModule(ThisModule());
}

MAVRIN2_MODULE_EXPORT(HRESULT) DllUnregisterServer() {
    return mavrin2::automation::UnregisterModule(ThisModule());
}
