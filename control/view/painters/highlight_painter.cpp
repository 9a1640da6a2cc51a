#include "control/view/painters/highlight_painter.h"

#include <algorithm>

namespace mavrin2::view {

void HighlightPainter::Draw(Surface& surface) const {
    if (!scene_.HasSound() || scene_.Loading() || scene_.Channels.OperationCount < 1) return;
    if (scene_.Markers.BackgroundEnabled) DrawRangeMarkers(surface);
    if (scene_.Selected()) DrawSelection(surface);
}

HighlightPainter::Rows HighlightPainter::EditedRows(std::int32_t upperEnd,
                                                    std::int32_t lowerStart) const {
    const Geometry& area = scene_.Area;
    const Rows whole{area.WaveArea.Top + area.LaneMargin + 1,
                     area.WaveArea.Bottom - area.LaneMargin};
    const int only = OnlyOperationChannel(scene_.Channels, scene_.Format.Channels);
    if (only < 0 || !scene_.BothVisible()) return whole;
    return only == 0 ? Rows{whole.Top, area.WaveArea.Top + upperEnd}
                     : Rows{area.WaveArea.Top + lowerStart, whole.Bottom};
}

// Each column once, however many markers cover it: they begin in rising order.
void HighlightPainter::DrawRangeMarkers(Surface& surface) const {
    const editor::ZoomLevel level = scene_.Document->Level();
    const ColumnMapping columns = scene_.Columns();
    const std::int32_t half = scene_.Area.WaveHeight / 2;
    const Rows rows = EditedRows(half - 1, half + 3);
    const std::int32_t left = scene_.Area.WaveArea.Left;
    const Pixel color = ToPixel(scene_.Colors.RangeMarkerBackground);
    std::int32_t done = 0;
    for (const editor::MarkerDisplayEntry& marker : markers_) {
        if (marker.Position > level.EndView) break;
        if (marker.Length <= Bytes(0) || marker.End() < level.StartView) continue;
        const std::int32_t from =
            std::max(done, columns.ByteToColumn(std::max(marker.Position, level.StartView)));
        const std::int32_t to = columns.ByteToColumn(std::min(marker.End(), level.EndView)) + 1;
        if (from >= to) continue;
        surface.Fill({left + from, rows.Top, left + to, rows.Bottom}, color);
        done = to;
    }
}

void HighlightPainter::DrawSelection(Surface& surface) const {
    const std::int32_t half = (scene_.Area.WaveHeight - 3) / 2;
    const Rows rows = EditedRows(half, half + 3);
    const std::int32_t left = scene_.Area.WaveArea.Left;
    surface.Fill(
        {left + scene_.Selection.Start, rows.Top, left + scene_.Selection.End + 1, rows.Bottom},
        ToPixel(scene_.Colors.SelectBackground));
}

}  // namespace mavrin2::view
