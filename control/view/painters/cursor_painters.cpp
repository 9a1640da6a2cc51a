#include "control/view/painters/cursor_painters.h"

#include <algorithm>

#include "control/view/painters/edge_shapes.h"

namespace mavrin2::view {
void CursorPainter::Draw(Surface& surface) const {
    if (!scene_.Document) return;
    DrawInBar(surface);
    const editor::ZoomLevel level = scene_.Document->Level();
    if (scene_.Selected() && level.StartSelect != level.EndSelect)
        DrawEdges(surface, level);
    else if (scene_.InView(level.StartSelect))
        DrawCursor(surface);
}

void CursorPainter::DrawInBar(Surface& surface) const {
    const editor::ZoomLevel level = scene_.Document->Level();
    const BarMapping bar(scene_.Area, scene_.Document->TotalBytes);
    const std::int32_t bottom = scene_.Area.OverviewBar + 3;
    const std::int32_t start = bar.ColumnOf(level.StartSelect);
    if (!scene_.Selected()) {
        surface.Vertical(start, 2, bottom, ToPixel(scene_.Colors.Cursor));
        return;
    }
    const bool dragging = scene_.Drag.Mode == editor::DragMode::Selecting;
    const std::int32_t end = bar.ColumnOf(dragging ? level.SelectDragEnd : level.EndSelect);
    surface.Fill({start, 2, end, bottom}, ToPixel(scene_.Colors.DarkSelectShade));
    const std::int32_t left = std::max(start, scene_.Thumb.Left);
    const std::int32_t right = std::min(end, scene_.Thumb.Left + scene_.Thumb.Width + 1);
    if (left < right)
        surface.Fill({left, 2, right, bottom}, ToPixel(scene_.Colors.LightSelectShade));
}

// Flags that point into the selection.
void CursorPainter::DrawEdges(Surface& surface, const editor::ZoomLevel& level) const {
    const Rectangle& wave = scene_.Area.WaveArea;
    const Pixel color = ToPixel(scene_.Colors.Cursor);
    EdgeShapes shapes(surface, scene_.Area);
    if (scene_.InView(level.StartSelect))
        shapes.RightFlag(wave.Left + scene_.Selection.Start, wave.Right, color);
    if (scene_.InView(level.EndSelect)) shapes.LeftFlag(wave.Left + scene_.Selection.End, color);
}

void CursorPainter::DrawCursor(Surface& surface) const {
    const Pixel color = ToPixel(scene_.Colors.Cursor);
    const std::int32_t x = scene_.Area.WaveArea.Left + scene_.Selection.Start;
    EdgeShapes shapes(surface, scene_.Area);
    shapes.Triangle(x, color);
    shapes.DottedLine(x, CursorRangeOf(scene_.Area, scene_.Channels, scene_.Format.Channels),
                      color);
}

void DrawPlayCursor(platform::DrawingTarget& target, const Rectangle& bounds, const Geometry& area,
                    const CursorRange& rows, std::int32_t column, Pixel color) {
    const std::int32_t x = bounds.Left + area.WaveArea.Left + column;
    const std::int32_t top = bounds.Top + area.WaveArea.Top;
    ForEachDash(
        top + rows.Top, top + rows.Bottom, kLineDash, kLinePeriod,
        [&](std::int32_t from, std::int32_t to) { target.DrawVertical(x, from, to, color.Value); });
}

}  // namespace mavrin2::view
