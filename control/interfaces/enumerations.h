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
}  // namespace mavrin2::automation
