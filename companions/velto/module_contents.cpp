// The class table of the playback companion's module.

#include "automation/module.h"
#include "companions/devices/server/system_server.h"
#include "companions/velto/playback_companion.h"

namespace mavrin2 {
namespace {

HRESULT CreatePlaybackCompanion(IUnknown* outer, REFIID iid, void** object) {
    return automation::Guarded([&] {
        return velto::PlaybackCompanion::Create(outer, iid, object, devices::SystemServers());
    });
}

constexpr automation::ClassEntry kClasses[] = {
    {contracts::CLSID_KovVelto, CreatePlaybackCompanion, "KovVelto Class", "KovVelto.Velto2.1",
     "KovVelto.Velto2", "Apartment"},
};

}  // namespace

const automation::ModuleContents& automation::ThisModule() {
    static const ModuleContents contents{kClasses, &contracts::VeltoLibrary};
    return contents;
}

}  // namespace mavrin2
