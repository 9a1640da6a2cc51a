// The class table of the control's module, in its published order.

#include "automation/module.h"
#include "control/interfaces/identifiers.h"
#include "control/interfaces/library.h"
#include "control/objects/file_info.h"
#include "control/objects/position.h"
#include "control/server/control.h"

namespace mavrin2 {
namespace {

HRESULT CreateControl(IUnknown* outer, REFIID iid, void** object) {
    return server::CMavrin2::Create(outer, iid, object, server::SystemEnvironment());
}

HRESULT CreateFileInfo(IUnknown* outer, REFIID iid, void** object) {
    return objects::CMavrin2FileInfo::Create(outer, iid, object);
}

HRESULT CreatePosition(IUnknown* outer, REFIID iid, void** object) {
    return objects::CMavrin2Position::Create(outer, iid, object, platform::SystemPorts().Files);
}

constexpr automation::ClassEntry kClasses[] = {
    {interfaces::CLSID_Mavrin2, CreateControl, "KovMavrin2 Class", "KovMavrin2.Mavrin2.2",
     "KovMavrin2.Mavrin2", "Apartment", true, true},
    {interfaces::CLSID_Mavrin2FileInfo, CreateFileInfo, "Mavrin2FileInfo Class",
     "KovMavrin2.Mavrin2FileInfo.1", "KovMavrin2.Mavrin2FileInfo", "both"},
    {interfaces::CLSID_Mavrin2Position, CreatePosition, "Mavrin2Position Class",
     "KovMavrin2.Mavrin2Position.1", "KovMavrin2.Mavrin2Position", "both"},
};

}  // namespace

const automation::ModuleContents& automation::ThisModule() {
    static const ModuleContents contents{kClasses, &interfaces::ControlLibrary};
    return contents;
}

}  // namespace mavrin2
