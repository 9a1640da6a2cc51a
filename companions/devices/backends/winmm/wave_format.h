#pragma once

#include "companions/devices/backends/winmm/system_sound.h"
#include "companions/devices/server/sound_server.h"

namespace mavrin2::devices {

// 16-bit samples as the system describes them.
inline WAVEFORMATEX WaveFormatOf(const Format& format) {
    WAVEFORMATEX wave{};
    wave.wFormatTag = WAVE_FORMAT_PCM;
    wave.nChannels = static_cast<WORD>(format.Channels);
    wave.nSamplesPerSec = static_cast<DWORD>(format.Rate);
    wave.wBitsPerSample = 16;
    wave.nBlockAlign = static_cast<WORD>(2 * format.Channels);
    wave.nAvgBytesPerSec = wave.nSamplesPerSec * wave.nBlockAlign;
    return wave;
}

// Opens a device by `open`, which is given the flags. A device that does not play or record a
// format itself gets it converted.
template <class Open>
bool OpenWave(UINT device, Open open) {
    const MMRESULT result = open(CALLBACK_EVENT);
    if (result == WAVERR_BADFORMAT && device != WAVE_MAPPER)
        return open(CALLBACK_EVENT | WAVE_MAPPED) == MMSYSERR_NOERROR;
    return result == MMSYSERR_NOERROR;
}

}  // namespace mavrin2::devices
