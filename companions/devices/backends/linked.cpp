#include "companions/backends/linked_backends.h"
#include "companions/devices/server/sound_server.h"

MAVRIN2_BACKEND_ENTRY(devices, winmm, SoundServerMaker);

namespace mavrin2::backends {
namespace {

const LinkedBackends::Entry kEntries[] = {
    MAVRIN2_LINKED_BACKEND(devices, winmm, SoundServerMaker),
};

}  // namespace

std::shared_ptr<const Backends> OfThisModule() {
    return std::make_shared<LinkedBackends>(kEntries);
}

}  // namespace mavrin2::backends
