#pragma once

#include <optional>
#include <string>
#include <vector>

#include "companions/devices/backends/winmm/system_sound.h"
#include "companions/devices/server/sound_server.h"

namespace mavrin2::devices {

// A wave device that is there now.
struct WaveDevice {
    UINT Number = 0;          // which changes when devices come and go
    std::string Name;         // which does not
    std::string Description;  // for users; the system gives at most 31 characters
    bool Default = false;
};

std::vector<WaveDevice> WaveDevices(Direction direction);

// The number of the device of this name, that of the default device where it is empty. Nothing if
// the device has gone.
std::optional<UINT> WaveDeviceNumber(Direction direction, const std::string& name);

}  // namespace mavrin2::devices
