// The class table of the control's module: what the library says of each class, and how it is made.

#include <vector>

#include "automation/module.h"
#include "control/interfaces/library.h"
#include "control/server/control.h"

namespace mavrin2 {
namespace {

HRESULT CreateControl(IUnknown* outer, REFIID iid, void** object) {
    return automation::Guarded(
        [&] { return server::CMavrin2::Create(outer, iid, object, server::SystemEnvironment()); });
}

std::vector<automation::ClassEntry> Classes() {
    std::vector<automation::ClassEntry> classes;
    for (const automation::ClassDescription& one : interfaces::ControlLibrary().Classes)
        classes.push_back({one.Id, one.Control ? &CreateControl : server::CreatorOf(one.Default()),
                           one.Help, one.VersionedProgId, one.ProgId,
                           one.Programmable ? "Apartment" : "both", one.Programmable, one.Control});
    return classes;
}

}  // namespace

const automation::ModuleContents& automation::ThisModule() {
    static const std::vector<ClassEntry> classes = Classes();
    static const ModuleContents contents{classes, &interfaces::ControlLibrary};
    return contents;
}

}  // namespace mavrin2
