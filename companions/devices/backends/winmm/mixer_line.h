#pragma once

#include <optional>

#include "companions/devices/backends/winmm/channel_volumes.h"
#include "companions/devices/backends/winmm/system_sound.h"
#include "companions/devices/server/sound_server.h"

namespace mavrin2::devices {

// The line of the system's mixer through which all sound of a wave device passes. What the device
// does not have is missing or refused.
class MixerLine {
public:
    MixerLine(Direction direction, UINT waveDevice);

    std::optional<ChannelVolumes> Volumes() const;
    bool SetVolumes(const ChannelVolumes& volumes) const;
    bool IsMuted() const;
    bool Mute(bool muted) const;

private:
    std::optional<MIXERCONTROLW> Find(DWORD line, DWORD type) const;
    // Reads or writes the values of a control, one for each channel.
    bool Exchange(bool write, const MIXERCONTROLW& control, std::span<DWORD> values) const;

    UINT mixer_ = 0;
    DWORD channels_ = 0;
    std::optional<MIXERCONTROLW> volume_;
    std::optional<MIXERCONTROLW> mute_;
};

}  // namespace mavrin2::devices
