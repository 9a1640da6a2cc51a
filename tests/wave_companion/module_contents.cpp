// The class table of the module that stands in for the companions.

#include "automation/module.h"
#include "tests/support/fake_kestrin.h"
#include "tests/wave_companion/wave_companion.h"

namespace mavrin2 {
namespace {

HRESULT CreateWaveCompanion(IUnknown* outer, REFIID iid, void** object) {
    return tests::WaveCompanion::Create(outer, iid, object);
}

HRESULT CreateFakeKestrin(IUnknown* outer, REFIID iid, void** object) {
    return tests::FakeKestrin::Create(outer, iid, object);
}

constexpr automation::ClassEntry kClasses[] = {
    {contracts::CLSID_KovDusoro2, CreateWaveCompanion, "Wave companion of the tests",
     "MavrinTest.WaveCompanion.1", "MavrinTest.WaveCompanion", "Apartment"},
    {contracts::CLSID_KovKestrin, CreateFakeKestrin, "Transform companion of the tests",
     "MavrinTest.FakeKestrin.1", "MavrinTest.FakeKestrin", "Apartment"},
};

}  // namespace

const automation::ModuleContents& automation::ThisModule() {
    static const ModuleContents contents{kClasses, &contracts::DusoroLibrary};
    return contents;
}

}  // namespace mavrin2
