#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/binding/late_binding.h"
#include "hosts/script/commands/command_line.h"

namespace mavrin2::script {

inline constexpr std::string_view kDevice = "--device";

// The sound devices for playback or for recording. All members throw CallError.
class SoundDevices {
public:
    // `property` is that of the control: DeviceOutput or DeviceInput.
    SoundDevices(IDispatch& control, std::string_view property);

    // Names, the first one that of device 1. The selected device stays so.
    std::vector<std::string> Names() const;
    // Selects what --device gives, a number or a name, if anything. Throws Failure when no device
    // is called so.
    void Choose(const CommandLine& line) const;

private:
    binding::LateBound devices_;
};

}  // namespace mavrin2::script
