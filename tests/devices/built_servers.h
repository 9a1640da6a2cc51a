#pragma once

#include "companions/devices/server/loaded_server.h"
#include "companions/devices/server/server_access.h"

namespace mavrin2::tests {

// The servers that the companions of this build use.
inline devices::ServerAccess Servers() {
    return {
        [] { return devices::LoadSoundServer(*platform::SystemModuleLoader(), LIBRARY_FOLDER); },
        platform::SystemClock()};
}

}  // namespace mavrin2::tests
