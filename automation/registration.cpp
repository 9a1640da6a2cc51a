// The registry entries of a module's classes.

#include <vector>

#include "automation/guarded.h"
#include "automation/module.h"
#include "automation/text.h"
#include "platform/component_registry.h"
#include "platform/module_path.h"
#include "platform/module_type_library.h"

namespace mavrin2::automation {
namespace {

using platform::RegistryChange;

std::u16string Wide(OleStringView text) {
    return {text.begin(), text.end()};
}
std::u16string Wide(std::string_view text) {
    return Wide(OleStringView(ToOle(text)));
}

std::u16string Braced(const GUID& id) {
    OLECHAR text[40] = {};
    StringFromGUID2(id, text, 40);
    return Wide(OleStringView(text));
}

class EntryList {
public:
    explicit EntryList(std::u16string modulePath) : modulePath_(std::move(modulePath)) {}

    void AddClass(const ClassEntry& entry, const LibraryDescription& library) {
        const std::u16string versioned = Wide(entry.VersionedProgId);
        const std::u16string progId = Wide(entry.ProgId);
        const std::u16string description = Wide(entry.Description);
        const std::u16string classId = Braced(entry.Id);
        const std::u16string key = u"CLSID\\" + classId;

        Set(versioned, description);
        Set(versioned + u"\\CLSID", classId);
        Set(progId, description);
        Set(progId + u"\\CLSID", classId);
        if (entry.Programmable) Set(progId + u"\\CurVer", versioned);

        changes_.push_back({RegistryChange::Kind::ReplaceKey, key, {}, {}});
        Set(key, description);
        Set(key + u"\\ProgID", versioned);
        Set(key + u"\\VersionIndependentProgID", progId);
        if (entry.Programmable) Set(key + u"\\Programmable", {});
        Set(key + u"\\InprocServer32", modulePath_);
        Set(key + u"\\InprocServer32", Wide(entry.ThreadingModel), u"ThreadingModel");
        if (entry.Programmable) Set(key + u"\\TypeLib", Braced(library.Id));
        if (entry.Control) AddControlKeys(key);
    }

    const std::vector<RegistryChange>& Changes() const { return changes_; }

private:
    // 131473: recompose on resize, cannot link inside, inside-out, activate when visible, set
    // client site first.
    void AddControlKeys(const std::u16string& key) {
        Set(key + u"\\Control", {});
        Set(key + u"\\Insertable", {});
        Set(key + u"\\ToolboxBitmap32", modulePath_ + u", 101");
        Set(key + u"\\MiscStatus", u"0");
        Set(key + u"\\MiscStatus\\1", u"131473");
        Set(key + u"\\Version", u"2.0");
    }

    void Set(const std::u16string& key, std::u16string value, std::u16string name = {}) {
        changes_.push_back(
            {RegistryChange::Kind::SetValue, key, std::move(name), std::move(value)});
    }

    std::u16string modulePath_;
    std::vector<RegistryChange> changes_;
};

}  // namespace

HRESULT RegisterModule(const ModuleContents& module) {
    return Guarded([&]() -> HRESULT {
        const void* const here = &ModuleLocks::OfThisModule();
        const std::filesystem::path path = platform::PathOfModule(here);
        if (path.empty()) return E_UNEXPECTED;
        EntryList entries(Wide(OleStringView(ToOle(path))));
        for (const ClassEntry& entry : module.Classes)
            entries.AddClass(entry, module.Library());
        ThrowIfFailed(platform::SystemComponentRegistry()->Apply(entries.Changes()));
        return platform::RegisterModuleTypeLibrary(here);
    });
}

HRESULT UnregisterModule(const ModuleContents& module) {
    return Guarded([&]() -> HRESULT {
        std::vector<RegistryChange> changes;
        for (const ClassEntry& entry : module.Classes) {
            for (const std::u16string& key :
                 {Wide(entry.VersionedProgId), Wide(entry.ProgId), u"CLSID\\" + Braced(entry.Id)})
                changes.push_back({RegistryChange::Kind::RemoveKey, key, {}, {}});
        }
        ThrowIfFailed(platform::SystemComponentRegistry()->Apply(changes));
        const LibraryDescription& library = module.Library();
        return platform::UnregisterTypeLibrary(library.Id, library.Major, library.Minor);
    });
}

}  // namespace mavrin2::automation
