#include "companions/devices/backends/winmm/mixer_line.h"

namespace mavrin2::devices {
namespace {

// The mixer calls take a device's number where a handle is expected.
HMIXEROBJ ObjectOf(UINT device) {
    return reinterpret_cast<HMIXEROBJ>(static_cast<UINT_PTR>(device));
}

static_assert(sizeof(DWORD) == sizeof(MIXERCONTROLDETAILS_UNSIGNED) &&
              sizeof(DWORD) == sizeof(MIXERCONTROLDETAILS_BOOLEAN));

}  // namespace

MixerLine::MixerLine(Direction direction, UINT waveDevice) {
    const bool output = direction == Direction::Output;
    if (::mixerGetID(ObjectOf(waveDevice), &mixer_,
                     output ? MIXER_OBJECTF_WAVEOUT : MIXER_OBJECTF_WAVEIN) != MMSYSERR_NOERROR)
        return;
    MIXERLINEW line{};
    line.cbStruct = sizeof line;
    line.dwComponentType =
        output ? MIXERLINE_COMPONENTTYPE_DST_SPEAKERS : MIXERLINE_COMPONENTTYPE_DST_WAVEIN;
    if (::mixerGetLineInfoW(ObjectOf(mixer_), &line,
                            MIXER_OBJECTF_MIXER | MIXER_GETLINEINFOF_COMPONENTTYPE) !=
        MMSYSERR_NOERROR)
        return;
    channels_ = line.cChannels;
    volume_ = Find(line.dwLineID, MIXERCONTROL_CONTROLTYPE_VOLUME);
    mute_ = Find(line.dwLineID, MIXERCONTROL_CONTROLTYPE_MUTE);
}

std::optional<MIXERCONTROLW> MixerLine::Find(DWORD line, DWORD type) const {
    MIXERCONTROLW control{};
    control.cbStruct = sizeof control;
    MIXERLINECONTROLSW wanted{};
    wanted.cbStruct = sizeof wanted;
    wanted.dwLineID = line;
    wanted.dwControlType = type;
    wanted.cControls = 1;
    wanted.cbmxctrl = sizeof control;
    wanted.pamxctrl = &control;
    if (::mixerGetLineControlsW(ObjectOf(mixer_), &wanted,
                                MIXER_OBJECTF_MIXER | MIXER_GETLINECONTROLSF_ONEBYTYPE) !=
        MMSYSERR_NOERROR)
        return std::nullopt;
    return control;
}

bool MixerLine::Exchange(bool write, const MIXERCONTROLW& control, std::span<DWORD> values) const {
    MIXERCONTROLDETAILS details{};
    details.cbStruct = sizeof details;
    details.dwControlID = control.dwControlID;
    details.cChannels = static_cast<DWORD>(values.size());
    details.cbDetails = sizeof(DWORD);
    details.paDetails = values.data();
    const auto call = write ? ::mixerSetControlDetails : ::mixerGetControlDetailsW;
    const DWORD what = write ? MIXER_SETCONTROLDETAILSF_VALUE : MIXER_GETCONTROLDETAILSF_VALUE;
    return call(ObjectOf(mixer_), &details, MIXER_OBJECTF_MIXER | what) == MMSYSERR_NOERROR;
}

// All known drivers count volumes from 0.
std::optional<ChannelVolumes> MixerLine::Volumes() const {
    if (!volume_) return std::nullopt;
    const bool uniform = (volume_->fdwControl & MIXERCONTROL_CONTROLF_UNIFORM) != 0;
    std::vector<DWORD> values(uniform ? 1 : std::max<DWORD>(channels_, 1));
    if (!Exchange(false, *volume_, values)) return std::nullopt;
    return ChannelVolumes({values.begin(), values.end()}, volume_->Bounds.dwMaximum);
}

bool MixerLine::SetVolumes(const ChannelVolumes& volumes) const {
    std::vector<DWORD> values(volumes.Channels().begin(), volumes.Channels().end());
    return volume_ && Exchange(true, *volume_, values);
}

// A mute is one switch for all channels.
bool MixerLine::IsMuted() const {
    DWORD muted = 0;
    return mute_ && Exchange(false, *mute_, {&muted, 1}) && muted != 0;
}

bool MixerLine::Mute(bool muted) const {
    DWORD value = muted ? 1 : 0;
    return mute_ && Exchange(true, *mute_, {&value, 1});
}

}  // namespace mavrin2::devices
