// The class table of the file companion's module.

#include "automation/module.h"
#include "companions/backends/backends.h"
#include "companions/dusoro/file_companion.h"
#include "companions/dusoro/lame_settings_object.h"
#include "companions/dusoro/sound_inspector_object.h"
#include "platform/ports.h"
#include "platform/replacement_file.h"

namespace mavrin2 {
namespace {

dusoro::SoundFiles MakeSoundFiles() {
    return {platform::SystemPorts().Files, platform::SystemReplacementFiles(),
            dusoro::SoundBackends(backends::OfThisModule())};
}

HRESULT CreateFileCompanion(IUnknown* outer, REFIID iid, void** object) {
    return automation::Guarded(
        [&] { return dusoro::FileCompanion::Create(outer, iid, object, MakeSoundFiles()); });
}

HRESULT CreateInspector(IUnknown* outer, REFIID iid, void** object) {
    return automation::Guarded(
        [&] { return dusoro::SoundInspectorObject::Create(outer, iid, object, MakeSoundFiles()); });
}

HRESULT CreateLameSettings(IUnknown* outer, REFIID iid, void** object) {
    return dusoro::LameSettingsObject::Create(outer, iid, object);
}

constexpr automation::ClassEntry kClasses[] = {
    {contracts::CLSID_KovDusoro2, CreateFileCompanion, "KovDusoro2 Class", "KovDusoro2.Dusoro2.1",
     "KovDusoro2.Dusoro2", "Apartment"},
    {contracts::CLSID_KovDusoroLame, CreateLameSettings, "KovDusoroLame Class", "KovDusoro2.Lame.1",
     "KovDusoro2.Lame", "both"},
    {contracts::CLSID_KovDusoroInspector, CreateInspector, "KovDusoroInspector Class",
     "KovDusoro2.Inspector.1", "KovDusoro2.Inspector", "Apartment"},
};

}  // namespace

const automation::ModuleContents& automation::ThisModule() {
    static const ModuleContents contents{kClasses, &contracts::DusoroLibrary};
    return contents;
}

}  // namespace mavrin2
