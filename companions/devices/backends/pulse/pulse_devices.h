#pragma once

#include "companions/devices/backends/pulse/pulse_connection.h"

namespace mavrin2::devices {

// The devices of one direction in the order of the server; nothing if it does not answer.
std::optional<std::vector<Device>> ListDevices(PulseConnection& connection, Direction direction,
                                               Deadline deadline);

bool ChangeMixer(PulseConnection& connection, Direction direction, const std::string& device,
                 const MixerChange& change, Deadline deadline);

}  // namespace mavrin2::devices
