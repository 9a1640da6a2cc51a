#pragma once

#include "companions/devices/server/server_access.h"

namespace mavrin2::devices {

// The servers of a companion whose module is in the same folder as those of the backends. `inside`
// is any address in the companion's module.
ServerAccess ServersBeside(const void* inside);

}  // namespace mavrin2::devices
