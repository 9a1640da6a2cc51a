// The class table of the capture companion's module.

#include "automation/module.h"
#include "companions/devices/server/system_server.h"
#include "companions/rimbal/capture_companion.h"

namespace mavrin2 {
namespace {

HRESULT CreateCaptureCompanion(IUnknown* outer, REFIID iid, void** object) {
    return automation::Guarded([&] {
        return rimbal::CaptureCompanion::Create(outer, iid, object, devices::SystemServers());
    });
}

constexpr automation::ClassEntry kClasses[] = {
    {contracts::CLSID_KovRimbal2, CreateCaptureCompanion, "KovRimbal2 Class",
     "KovRimbal2.Rimbal2.1", "KovRimbal2.Rimbal2", "Apartment"},
};

}  // namespace

const automation::ModuleContents& automation::ThisModule() {
    static const ModuleContents contents{kClasses, &contracts::RimbalLibrary};
    return contents;
}

}  // namespace mavrin2
