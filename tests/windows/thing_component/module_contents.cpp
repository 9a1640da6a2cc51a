// A component of the automation tests' thing, whose members have what the control's do not have
// yet: indices, arrays, values of every type.

#include "automation/module.h"
#include "tests/automation/thing.h"

namespace mavrin2 {
namespace {

HRESULT CreateThing(IUnknown* outer, REFIID iid, void** object) {
    return tests::TestThing::Create(outer, iid, object);
}

constexpr automation::ClassEntry kClasses[] = {
    {tests::CLSID_TestThing, CreateThing, "A thing", "MavrinTest.Thing.1", "MavrinTest.Thing",
     "both", true},
};

}  // namespace

const automation::ModuleContents& automation::ThisModule() {
    static const ModuleContents contents{kClasses, &tests::TestLibrary};
    return contents;
}

}  // namespace mavrin2
