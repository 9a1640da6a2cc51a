#include "companions/backends/linked_backends.h"
#include "companions/ontiva/libraries/libraries.h"

MAVRIN2_BACKEND_ENTRY(ontiva, avformat, ContainerLibrary);
MAVRIN2_BACKEND_ENTRY(ontiva, flac, FlacLibrary);
MAVRIN2_BACKEND_ENTRY(ontiva, taglib, TagLibrary);

namespace mavrin2::backends {
namespace {

const LinkedBackends::Entry kEntries[] = {
    MAVRIN2_LINKED_BACKEND(ontiva, avformat, ContainerLibrary),
    MAVRIN2_LINKED_BACKEND(ontiva, flac, FlacLibrary),
    MAVRIN2_LINKED_BACKEND(ontiva, taglib, TagLibrary),
};

}  // namespace

std::shared_ptr<const Backends> OfThisModule() {
    return std::make_shared<LinkedBackends>(kEntries);
}

}  // namespace mavrin2::backends
