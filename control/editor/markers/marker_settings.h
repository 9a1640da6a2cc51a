#pragma once

#include <cstdint>

namespace mavrin2::editor {

// What hosts choose for markers. Flags are 0 or what a host has written.
struct MarkerSettings {
    std::int16_t BarEnabled = 1;         // dotted lines at the starts and ends of markers
    std::int16_t BackgroundEnabled = 1;  // range markers are shaded
    std::int16_t ToolTipEnabled = 1;     // the label of the marker under the mouse is shown
    std::int16_t MouseEventEnabled = 1;  // a double click makes or deletes a marker
    // 1 or more: markers are shown in colours of their own.
    std::int16_t BitmapType = 1;
    // Of markers made without one, 0x00BBGGRR: the control's Colors object keeps it.
    std::uint32_t NewColor = 0x7D7DFF;
};

}  // namespace mavrin2::editor
