#pragma once

#include <cstdint>

#include "automation/interface_description.h"
#include "companions/contracts/constants.h"

namespace mavrin2::interfaces {

using contracts::ErrorConstants;
using contracts::FormatTypeConstants;

// Sample rates in hertz. Others are accepted wherever one of these is.
enum class FrequencyConstants : std::int32_t {
    FQ_6_KHZ = 6000,
    FQ_8_KHZ = 8000,
    FQ_11_KHZ = 11025,
    FQ_12_KHZ = 12000,
    FQ_16_KHZ = 16000,
    FQ_22_KHZ = 22050,
    FQ_24_KHZ = 24000,
    FQ_32_KHZ = 32000,
    FQ_44_KHZ = 44100,
    FQ_48_KHZ = 48000,
    FQ_88_KHZ = 88200,
    FQ_96_KHZ = 96000
};

enum class ChannelsConstants : std::int32_t { MONO = 1, STEREO = 2 };

// Which ends of the selection Trim works on.
enum class TrimConstants : std::int32_t { TRIM_LEFT = 0, TRIM_RIGHT = 1, TRIM_BOTH = 2 };

// What Play plays, from the selection's start: the selection, or up to the end of the view without
// one; all up to the end of the document; the same as NORMALPLAY again and again.
enum class PlayTypeConstants : std::int32_t { NORMALPLAY = 1, PLAYTOEND = 2, PLAYLOOPED = 3 };

// Whether Record replaces the sound that is there or is added to it.
enum class RecordTypeConstants : std::int32_t { RECORD_CLEAR = 1, RECORD_MIX = 2 };

// What the lanes of the picture show.
enum class TypeViewConstants : std::int32_t { WAVEFORM = 0, SPECTRAL = 1, EXPANDED = 2 };

// Pointers of the mouse.
enum class MousePointerConstants : std::int32_t {
    vbDefault = 0,
    vbArrow = 1,
    vbCrosshair = 2,
    vbIbeam = 3,
    vbIconPointer = 4,
    vbSizePointer = 5,
    vbSizeNESW = 6,
    vbSizeNS = 7,
    vbSizeNWSE = 8,
    vbSizeWE = 9,
    vbUpArrow = 10,
    vbHourglass = 11,
    vbNoDrop = 12,
    vbArrowHourglass = 13,
    vbArrowQuestion = 14,
    vbSizeAll = 15,
    vbCustom = 99
};

// Bit rates in kbit/s. BR_NONE leaves the choice to the encoder.
enum class BitrateConstants : std::int32_t {
    BR_NONE = 0,
    BR_8_KBPS = 8,
    BR_16_KBPS = 16,
    BR_24_KBPS = 24,
    BR_32_KBPS = 32,
    BR_40_KBPS = 40,
    BR_48_KBPS = 48,
    BR_56_KBPS = 56,
    BR_64_KBPS = 64,
    BR_80_KBPS = 80,
    BR_96_KBPS = 96,
    BR_112_KBPS = 112,
    BR_128_KBPS = 128,
    BR_160_KBPS = 160,
    BR_192_KBPS = 192,
    BR_224_KBPS = 224,
    BR_256_KBPS = 256,
    BR_320_KBPS = 320,
    BR_350_KBPS = 350
};

// Bits of one sample.
enum class BitsPerSampleConstants : std::int32_t {
    BPS_2_BIT = 2,
    BPS_3_BIT = 3,
    BPS_4_BIT = 4,
    BPS_5_BIT = 5,
    BPS_8_BIT = 8,
    BPS_16_BIT = 16,
    BPS_24_BIT = 24,
    BPS_32_BIT = 32
};

// Coding of samples without a header.
enum class RawTypeCompressConstants : std::int32_t {
    PCM = 1,
    ALAW = 2,
    ULAW = 3,
    GSM = 4,
    IMA_ADPCM = 5,
    MS_ADPCM = 6
};

// How the bit rate of MP3 changes.
enum class Mp3LameMethodConstants : std::int32_t {
    VBR_NONE = -1,
    VBR_DEFAULT = 0,
    VBR_OLD = 1,
    VBR_NEW = 2,
    VBR_MTRH = 3,
    VBR_ABR = 4
};

// How MP3 has two channels.
enum class Mp3LameTypeStereoConstants : std::int32_t {
    SIMPLY = 1,
    JOINTSTEREO = 2,
    FORCEDJOINTSTEREO = 3,
    DUALCHANNEL = 4
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const EnumerationDescription& EnumerationOf<interfaces::FrequencyConstants>();
template <>
const EnumerationDescription& EnumerationOf<interfaces::ChannelsConstants>();
template <>
const EnumerationDescription& EnumerationOf<interfaces::TrimConstants>();
template <>
const EnumerationDescription& EnumerationOf<interfaces::TypeViewConstants>();
template <>
const EnumerationDescription& EnumerationOf<interfaces::MousePointerConstants>();
template <>
const EnumerationDescription& EnumerationOf<interfaces::PlayTypeConstants>();
template <>
const EnumerationDescription& EnumerationOf<interfaces::RecordTypeConstants>();
template <>
const EnumerationDescription& EnumerationOf<interfaces::BitrateConstants>();
template <>
const EnumerationDescription& EnumerationOf<interfaces::BitsPerSampleConstants>();
template <>
const EnumerationDescription& EnumerationOf<interfaces::RawTypeCompressConstants>();
template <>
const EnumerationDescription& EnumerationOf<interfaces::Mp3LameMethodConstants>();
template <>
const EnumerationDescription& EnumerationOf<interfaces::Mp3LameTypeStereoConstants>();
}  // namespace mavrin2::automation
