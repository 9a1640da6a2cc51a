// The class table of the module that stands in for the companions.

#include "automation/module.h"
#include "tests/support/fake_kestrin.h"
#include "tests/support/fake_ontiva.h"
#include "tests/support/fake_pindle.h"
#include "tests/wave_companion/wave_companion.h"

namespace mavrin2 {
namespace {

template <class Companion>
HRESULT CreateCompanion(IUnknown* outer, REFIID iid, void** object) {
    return Companion::Create(outer, iid, object);
}

constexpr automation::ClassEntry kClasses[] = {
    {contracts::CLSID_KovDusoro2, CreateCompanion<tests::WaveCompanion>,
     "Wave companion of the tests", "MavrinTest.WaveCompanion.1", "MavrinTest.WaveCompanion",
     "Apartment"},
    {contracts::CLSID_KovKestrin, CreateCompanion<tests::FakeKestrin>,
     "Transform companion of the tests", "MavrinTest.FakeKestrin.1", "MavrinTest.FakeKestrin",
     "Apartment"},
    {contracts::CLSID_KovOntiva, CreateCompanion<tests::FakeOntiva>,
     "Information companion of the tests", "MavrinTest.FakeOntiva.1", "MavrinTest.FakeOntiva",
     "Apartment"},
    {contracts::CLSID_KovPindle, CreateCompanion<tests::FakePindle>, "CD grabber of the tests",
     "MavrinTest.FakePindle.1", "MavrinTest.FakePindle", "Apartment"},
};

}  // namespace

const automation::ModuleContents& automation::ThisModule() {
    static const ModuleContents contents{kClasses, &contracts::DusoroLibrary};
    return contents;
}

}  // namespace mavrin2
