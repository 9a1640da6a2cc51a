#include "control/view/painters/highlight_painter.h"

#include "control/view/lanes.h"

namespace mavrin2::view {

void HighlightPainter::Draw(Surface& surface) const {
    if (!scene_.HasSound() || scene_.Loading() || scene_.Channels.OperationCount < 1) return;
    if (!scene_.Selected()) return;
    const Geometry& area = scene_.Area;
    std::int32_t top = area.WaveArea.Top + area.LaneMargin + 1;
    std::int32_t bottom = area.WaveArea.Bottom - area.LaneMargin;
    const int only = OnlyOperationChannel(scene_.Channels, scene_.Format.Channels);
    if (only >= 0 && scene_.BothVisible()) {
        const std::int32_t half = area.WaveArea.Top + (area.WaveHeight - 3) / 2;
        if (only == 0)
            bottom = half;
        else
            top = half + 3;
    }
    const std::int32_t left = area.WaveArea.Left;
    surface.Fill({left + scene_.SelStartColumn, top, left + scene_.SelEndColumn + 1, bottom},
                 ToPixel(scene_.Colors.SelectBackground));
}

}  // namespace mavrin2::view
