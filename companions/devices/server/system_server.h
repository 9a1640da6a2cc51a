#pragma once

#include <memory>

#include "companions/backends/backends.h"
#include "companions/devices/server/server_access.h"

namespace mavrin2::devices {

// The server of the system that this runs on. Null if the backend or its library is missing.
std::unique_ptr<SoundServer> MakeSystemServer(const backends::Backends& backends);

// For the companion that this module is.
ServerAccess SystemServers();

}  // namespace mavrin2::devices
