// Finding classes in the component registry and loading the modules that hold them.

#include <algorithm>
#include <filesystem>
#include <map>
#include <mutex>
#include <new>
#include <string>
#include <system_error>

#include "platform/component_registry.h"
#include "platform/linux/automation/functions.h"
#include "platform/linux/automation/identifier_text.h"
#include "platform/linux/automation/status.h"
#include "platform/module_loader.h"
#include "platform/ole_text.h"

namespace mavrin2::platform::automation {
namespace {

using ClassObjectGetter = decltype(&DllGetClassObject);

// The modules of this process. None is ever unloaded: objects and threads of theirs may
// be alive unnoticed.
class Modules {
public:
    HRESULT Load(const std::string& path, ClassObjectGetter& getter) {
        const std::lock_guard guard(guard_);
        if (const auto found = getters_.find(path); found != getters_.end()) {
            getter = found->second;
            return S_OK;
        }
        std::error_code ignored;
        if (!std::filesystem::exists(path, ignored)) return CO_E_DLLNOTFOUND;
        std::string reason;
        const auto module = loader_->Load(path, reason);
        if (!module) return CO_E_ERRORINDLL;
        getter = reinterpret_cast<ClassObjectGetter>(module->Find("DllGetClassObject"));
        if (!getter) return CO_E_ERRORINDLL;
        getters_.emplace(path, getter);
        return S_OK;
    }

private:
    // Recursive: a module that is being loaded may create objects of another.
    std::recursive_mutex guard_;
    std::shared_ptr<ModuleLoader> loader_ = SystemModuleLoader();
    std::map<std::string, ClassObjectGetter> getters_;
};

Modules& ProcessModules() {
    // Never destroyed: a component may be created while the process ends.
    static Modules& modules = *new Modules;
    return modules;
}

std::u16string ClassKey(REFCLSID clsid) {
    OLECHAR text[39];
    StringFromGUID2(clsid, text, 39);
    return std::u16string(u"CLSID\\") + text;
}

std::u16string DefaultValue(const std::u16string& key) {
    return SystemComponentRegistry()->Value(key, u"").value_or(u"");
}

HRESULT FindClassObject(REFCLSID clsid, DWORD context, REFIID iid, LPVOID* object) {
    // Every class here lives in the process that asks for it.
    if ((context & CLSCTX_INPROC_SERVER) == 0) return REGDB_E_CLASSNOTREG;
    const std::string path = Utf8Of(DefaultValue(ClassKey(clsid) + u"\\InprocServer32"));
    if (path.empty()) return REGDB_E_CLASSNOTREG;
    ClassObjectGetter getter = nullptr;
    const HRESULT status = ProcessModules().Load(path, getter);
    return FAILED(status) ? status : getter(clsid, iid, object);
}

HRESULT FindClass(LPCOLESTR progId, CLSID& clsid) {
    const std::u16string text = DefaultValue(std::u16string(progId) + u"\\CLSID");
    return ParseIdentifier(text, clsid) ? S_OK : CO_E_CLASSSTRING;
}

HRESULT FindProgId(REFCLSID clsid, LPOLESTR* progId) {
    const std::u16string text = DefaultValue(ClassKey(clsid) + u"\\ProgID");
    if (text.empty()) return REGDB_E_CLASSNOTREG;
    auto* const copy = static_cast<LPOLESTR>(CoTaskMemAlloc((text.size() + 1) * sizeof(OLECHAR)));
    if (copy == nullptr) return E_OUTOFMEMORY;
    std::copy_n(text.c_str(), text.size() + 1, copy);
    *progId = copy;
    return S_OK;
}

// Nothing may be thrown through the C functions.
template <typename Action>
HRESULT Guarded(Action action) {
    try {
        return action();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace
}  // namespace mavrin2::platform::automation

namespace automation = mavrin2::platform::automation;

HRESULT CLSIDFromProgID(LPCOLESTR progId, LPCLSID clsid) {
    if (clsid == nullptr) return E_INVALIDARG;
    *clsid = GUID_NULL;
    if (progId == nullptr) return E_INVALIDARG;
    return automation::Guarded([&] { return automation::FindClass(progId, *clsid); });
}

HRESULT ProgIDFromCLSID(REFCLSID clsid, LPOLESTR* progId) {
    if (progId == nullptr) return E_INVALIDARG;
    *progId = nullptr;
    return automation::Guarded([&] { return automation::FindProgId(clsid, progId); });
}

HRESULT CoGetClassObject(REFCLSID clsid, DWORD context, LPVOID reserved, REFIID iid,
                         LPVOID* object) {
    if (object == nullptr || reserved != nullptr) return E_INVALIDARG;
    *object = nullptr;
    return automation::Guarded(
        [&] { return automation::FindClassObject(clsid, context, iid, object); });
}

HRESULT CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context, REFIID iid,
                         LPVOID* object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    void* found = nullptr;
    HRESULT status = CoGetClassObject(clsid, context, nullptr, IID_IClassFactory, &found);
    if (FAILED(status)) return status;
    auto* const factory = static_cast<IClassFactory*>(found);
    status = factory->CreateInstance(outer, iid, object);
    factory->Release();
    return status;
}
