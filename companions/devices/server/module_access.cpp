#include "companions/devices/server/module_access.h"

#include "companions/devices/server/loaded_server.h"
#include "platform/module_path.h"

namespace mavrin2::devices {

ServerAccess ServersBeside(const void* inside) {
    return {[folder = platform::PathOfModule(inside).parent_path()] {
                return LoadSoundServer(*platform::SystemModuleLoader(), folder);
            },
            platform::SystemClock()};
}

}  // namespace mavrin2::devices
