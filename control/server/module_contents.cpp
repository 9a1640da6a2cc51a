// The class table of the control's module, in its published order.

#include "automation/module.h"
#include "control/interfaces/identifiers.h"
#include "control/interfaces/library.h"
#include "control/objects/channel.h"
#include "control/objects/colors.h"
#include "control/objects/file_info.h"
#include "control/objects/position.h"
#include "control/objects/scale.h"
#include "control/server/control.h"

namespace mavrin2 {
namespace {

HRESULT CreateControl(IUnknown* outer, REFIID iid, void** object) {
    return server::CMavrin2::Create(outer, iid, object, server::SystemEnvironment());
}

HRESULT CreateChannel(IUnknown* outer, REFIID iid, void** object) {
    return objects::CMavrin2Channel::Create(outer, iid, object);
}

HRESULT CreateColors(IUnknown* outer, REFIID iid, void** object) {
    return objects::CMavrin2Colors::Create(outer, iid, object,
                                           platform::SystemPorts().Colors.ButtonFace);
}

HRESULT CreateFileInfo(IUnknown* outer, REFIID iid, void** object) {
    return objects::CMavrin2FileInfo::Create(outer, iid, object);
}

HRESULT CreatePosition(IUnknown* outer, REFIID iid, void** object) {
    return objects::CMavrin2Position::Create(outer, iid, object, platform::SystemPorts().Files);
}

HRESULT CreateScale(IUnknown* outer, REFIID iid, void** object) {
    return objects::CMavrin2Scale::Create(outer, iid, object);
}

constexpr automation::ClassEntry kClasses[] = {
    {interfaces::CLSID_Mavrin2, CreateControl, "KovMavrin2 Class", "KovMavrin2.Mavrin2.2",
     "KovMavrin2.Mavrin2", "Apartment", true, true},
    {interfaces::CLSID_Mavrin2Channel, CreateChannel, "Mavrin2Channel Class",
     "KovMavrin2.Mavrin2Channel.1", "KovMavrin2.Mavrin2Channel", "both"},
    {interfaces::CLSID_Mavrin2Colors, CreateColors, "Mavrin2Colors Class",
     "KovMavrin2.Mavrin2Colors.1", "KovMavrin2.Mavrin2Colors", "both"},
    {interfaces::CLSID_Mavrin2FileInfo, CreateFileInfo, "Mavrin2FileInfo Class",
     "KovMavrin2.Mavrin2FileInfo.1", "KovMavrin2.Mavrin2FileInfo", "both"},
    {interfaces::CLSID_Mavrin2Position, CreatePosition, "Mavrin2Position Class",
     "KovMavrin2.Mavrin2Position.1", "KovMavrin2.Mavrin2Position", "both"},
    {interfaces::CLSID_Mavrin2Scale, CreateScale, "Mavrin2Scale Class", "KovMavrin2.Mavrin2Scale.1",
     "KovMavrin2.Mavrin2Scale", "both"},
};

}  // namespace

const automation::ModuleContents& automation::ThisModule() {
    static const ModuleContents contents{kClasses, &interfaces::ControlLibrary};
    return contents;
}

}  // namespace mavrin2
