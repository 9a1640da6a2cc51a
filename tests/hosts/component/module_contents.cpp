#include "automation/module.h"
#include "tests/automation/thing.h"
#include "tests/hosts/component/fake_editor.h"

namespace mavrin2::automation {

const ModuleContents& ThisModule() {
    using tests::FakeEditor;
    using tests::TestThing;
    static const ClassEntry classes[] = {
        {tests::CLSID_TestThing,
         [](IUnknown* outer, REFIID iid, void** object) {
             return TestThing::Create(outer, iid, object);
         },
         "A thing", "MavrinTest.Thing.1", "MavrinTest.Thing", "both"},
        {tests::CLSID_FakeEditor,
         [](IUnknown* outer, REFIID iid, void** object) {
             return FakeEditor::Create(outer, iid, object);
         },
         "An editor", "KovMavrin2.Mavrin2.2", "KovMavrin2.Mavrin2", "Apartment"}};
    static const ModuleContents contents{classes, &tests::TestLibrary};
    return contents;
}

}  // namespace mavrin2::automation
