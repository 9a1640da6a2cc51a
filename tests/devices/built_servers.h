#pragma once

#include "companions/devices/server/system_server.h"
#include "tests/support/built_backends.h"

namespace mavrin2::tests {

// The servers that the companions of this build use.
inline devices::ServerAccess Servers() {
    return {[] { return devices::MakeSystemServer(*BuiltBackends("devices")); },
            platform::SystemClock()};
}

}  // namespace mavrin2::tests
