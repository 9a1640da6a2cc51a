#pragma once

#include "control/view/style.h"
#include "control/view/surface.h"
#include "platform/system_colors.h"

namespace mavrin2::view {

// The colours that are taken over only when the host sets one of them, and those of the system,
// which stay as they were when the control was made.
struct Pens {
    Pixel Highlight;
    Pixel Shadow;
    Pixel Face;
    Pixel Grid;
    Pixel Analog;
    Pixel Digital;
    Pixel Center;
    Pixel SelectAnalog;
    Pixel SelectDigital;
    Pixel SelectCenter;
    Pixel Text;

    explicit Pens(const platform::SystemColors& system)
        : Highlight(ToPixel(system.Highlight)), Shadow(ToPixel(system.Shadow)) {}

    void TakeColors(const ColorSettings& colors) {
        Face = ToPixel(colors.Scales);
        Grid = ToPixel(colors.Grid);
        Analog = ToPixel(colors.AnalogWaveform);
        Digital = ToPixel(colors.DigitalWaveform);
        Center = ToPixel(colors.CenterLine);
        SelectAnalog = ToPixel(colors.SelectAnalogWaveform);
        SelectDigital = ToPixel(colors.SelectDigitalWaveform);
        SelectCenter = ToPixel(colors.SelectCenterLine);
        Text = ToPixel(colors.Font);
    }
};

inline constexpr Pixel kBlack{0x000000};
inline constexpr Pixel kGrey{0x4A4A4A};

}  // namespace mavrin2::view
