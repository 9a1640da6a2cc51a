#include "control/view/painters/overview_bar_painter.h"

namespace mavrin2::view {

void OverviewBarPainter::Draw(Surface& surface) const {
    DrawBar(surface);
    if (scene_.Channels.VisibleCount > 1) DrawSeparators(surface);
}

void OverviewBarPainter::DrawBar(Surface& surface) const {
    const Rectangle& wave = scene_.Area.WaveArea;
    const std::int32_t bar = scene_.Area.OverviewBar;
    surface.Horizontal(wave.Left, wave.Right + 1, 1, kBlack);
    surface.Horizontal(wave.Left, wave.Right + 1, bar + 3, kBlack);
    surface.Fill({thumb_.Left, 2, thumb_.Left + thumb_.Width + 1, bar + 3}, scene_.Pen.Digital);
    surface.Vertical(wave.Left, 1, bar + 3, kBlack);
    surface.Vertical(wave.Right, 1, bar + 3, kBlack);
}

void OverviewBarPainter::DrawSeparators(Surface& surface) const {
    const Geometry& area = scene_.Area;
    const Rectangle& wave = area.WaveArea;
    const std::int32_t middle = wave.Top + area.WaveHeight / 2;
    const bool scale = scene_.ScaleY.Visible != 0 && area.LevelScale > 0;
    for (const std::int32_t row : {-1, 0, 1}) {
        const Pixel color = row == 0 ? scene_.Pen.Highlight : scene_.Pen.Shadow;
        surface.Horizontal(wave.Left, wave.Right + 1, middle + row, color);
        if (!scale) continue;
        if (scene_.LevelScaleLeft())
            surface.Horizontal(wave.Left - 2, wave.Left - 4 - area.LevelScale, middle + row, color);
        else
            surface.Horizontal(wave.Left, wave.Right + area.LevelScale + 3, middle + row, color);
    }
}

}  // namespace mavrin2::view
