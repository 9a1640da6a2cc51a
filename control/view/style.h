#pragma once

#include <cstdint>

#include "platform/text.h"

namespace mavrin2::view {

// Colours of the picture, 0x00BBGGRR, and four places on the colour ramp of the spectral picture.
struct ColorSettings {
    std::uint32_t Background = 0x000000;
    std::uint32_t CueMarker = 0x7D7DFF;
    std::uint32_t RangeMarker = 0xFFBC24;
    std::uint32_t Font = 0x000000;
    std::uint32_t Grid = 0x4F2C04;
    std::uint32_t Scales = 0xC8D0D4;  // the system's button face, set when the settings are made
    std::uint32_t Cursor = 0x00FFFF;
    std::uint32_t Boundary = 0x9F876F;
    std::uint32_t PlayCursor = 0xDCDCDC;
    std::uint32_t AnalogWaveform = 0x567E00;
    std::uint32_t DigitalWaveform = 0xABF01C;
    std::uint32_t CenterLine = 0x2626A4;
    std::uint32_t SelectBackground = 0xFFFFFF;
    std::uint32_t SelectAnalogWaveform = 0xAC0000;
    std::uint32_t SelectDigitalWaveform = 0x604720;
    std::uint32_t SelectCenterLine = 0x2626A4;
    std::uint32_t RangeMarkerBackground = 0x414141;
    // The selection in the overview bar: darker shades of DigitalWaveform.
    std::uint32_t DarkSelectShade = 0x77AB0C;
    std::uint32_t LightSelectShade = 0x94D30E;
    std::int32_t SpectralLow = 35;
    std::int32_t SpectralHigh = 135;
    std::int32_t SpectralSelectLow = 100;
    std::int32_t SpectralSelectHigh = 200;
};

// One scale. Flags are 0 or what the host has written.
struct ScaleSettings {
    // Time: 1 frames, 2 time. Level: 1 sample values, 2 percent of full scale, 3 decibels.
    std::int16_t Type = 1;
    std::int16_t Visible = 1;
    std::int16_t Grid = 1;
    std::int16_t Orientation = 1;  // the level scale stands 1: right, 2: left of the waveform
};

// What the host has chosen, read whenever it is needed: a host may put in objects of its own.
class Style {
public:
    virtual ~Style() = default;

    virtual ColorSettings Colors() const = 0;
    virtual ScaleSettings ScaleX() const = 0;
    virtual ScaleSettings ScaleY() const = 0;
    virtual platform::FontDescription ScaleXFont() const = 0;
    virtual platform::FontDescription ScaleYFont() const = 0;
    // Brings types out of range to the nearest there is, in the host's objects.
    virtual void LimitScaleTypes() = 0;
};

}  // namespace mavrin2::view
