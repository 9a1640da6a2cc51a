#pragma once

#include <cstdint>

#include "automation/text.h"
#include "control/editor/markers/marker_display_list.h"
#include "control/editor/markers/marker_settings.h"
#include "control/view/display.h"

namespace mavrin2::view {

// The label of the marker under the mouse.
class MarkerTooltip {
public:
    MarkerTooltip(const editor::MarkerSettings& settings, const editor::MarkerDisplayList& markers,
                  Display& screen)
        : settings_(settings), markers_(markers), screen_(screen) {}

    // Called in a mouse event at this pixel of the window: shows the label there once the mouse
    // rests.
    void ShowMarkerTooltip(std::int32_t x, std::int32_t y,
                           const editor::MarkerDisplayEntry& marker) const {
        if (settings_.ToolTipEnabled && markers_.Count() > 0)
            screen_.SetTip(automation::ToUtf8(marker.Label.data()), x, y);
    }

private:
    const editor::MarkerSettings& settings_;
    const editor::MarkerDisplayList& markers_;
    Display& screen_;
};

}  // namespace mavrin2::view
