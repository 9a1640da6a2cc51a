#pragma once

#include <cstdint>

#include "automation/text.h"
#include "control/editor/markers/marker_list.h"
#include "control/editor/markers/marker_settings.h"
#include "control/view/display.h"

namespace mavrin2::view {

// The label of the marker under the mouse.
class MarkerTooltip {
public:
    MarkerTooltip(const editor::MarkerSettings& settings, Display& screen)
        : settings_(settings), screen_(screen) {}

    // Called in a mouse event at this pixel of the window: shows the label there once the mouse
    // rests.
    void ShowMarkerTooltip(std::int32_t x, std::int32_t y,
                           const editor::MarkerRecord& marker) const {
        if (settings_.ToolTipEnabled) screen_.SetTip(automation::ToUtf8(marker.Texts->Label), x, y);
    }

private:
    const editor::MarkerSettings& settings_;
    Display& screen_;
};

}  // namespace mavrin2::view
