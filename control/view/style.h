#pragma once

#include <cstdint>

#include "control/interfaces/color_table.h"
#include "control/view/hls.h"
#include "platform/text.h"

namespace mavrin2::view {

// Colours of the picture, 0x00BBGGRR, and four places on the colour ramp of the spectral picture.
struct ColorSettings {
#define COLOR_FIELD(name, id, initial, ...) std::uint32_t name = initial;
#define HUE_FIELD(name, id, initial, ...) std::int32_t name = initial;
    MAVRIN2_COLORS(COLOR_FIELD)
    MAVRIN2_HUES(HUE_FIELD)
#undef COLOR_FIELD
#undef HUE_FIELD
    // The selection in the overview bar: darker shades of DigitalWaveform, once that has been set.
    std::uint32_t DarkSelectShade = 0x77AB0C;
    std::uint32_t LightSelectShade = 0x94D30E;

    void Set(std::uint32_t ColorSettings::*color, std::uint32_t value) {
        this->*color = value;
        if (color != &ColorSettings::DigitalWaveform) return;
        DarkSelectShade = Darker(value, 40);
        LightSelectShade = Darker(value, 20);
    }
    void Set(std::int32_t ColorSettings::*hue, std::int32_t value) {
        this->*hue = value;
    }
};

// One scale. Flags are 0 or what the host has written.
struct ScaleSettings {
    // Time: 1 frames, 2 time. Level: 1 sample values, 2 percent of full scale, 3 decibels.
    std::int16_t Type = 1;
    std::int16_t Visible = 1;
    std::int16_t Grid = 1;
    std::int16_t Orientation = 1;  // of the level scale: 1 right, 2 left of the waveform
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
