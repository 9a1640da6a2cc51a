#include "control/view/painters/cursor_painters.h"

#include <algorithm>

namespace mavrin2::view {
namespace {

// Dashes of the edit and the play cursor.
constexpr std::int32_t kCursorDash = 2;
constexpr std::int32_t kCursorPeriod = 4;

}  // namespace

void CursorPainter::Draw(Surface& surface) const {
    if (!scene_.Document) return;
    DrawInBar(surface);
    const editor::ZoomLevel level = scene_.Document->Level();
    if (scene_.Selected() && level.StartSelect != level.EndSelect)
        DrawEdges(surface, level);
    else if (InView(level.StartSelect))
        DrawCursor(surface);
}

bool CursorPainter::InView(signal::Bytes position) const {
    const editor::ZoomLevel level = scene_.Document->Level();
    return position >= level.StartView && position <= level.EndView;
}

void CursorPainter::DrawInBar(Surface& surface) const {
    const editor::DocumentState& document = *scene_.Document;
    const double scale =
        document.TotalBytes > signal::Bytes(0)
            ? scene_.Area.WaveWidth / static_cast<double>(document.TotalBytes.Count())
            : 0;
    const auto columnOf = [&](signal::Bytes position) {
        return scene_.Area.WaveArea.Left +
               static_cast<std::int32_t>(static_cast<double>(position.Count()) * scale);
    };
    const std::int32_t bottom = scene_.Area.OverviewBar + 3;
    const std::int32_t start = columnOf(document.Level().StartSelect);
    if (!scene_.Selected()) {
        surface.Vertical(start, 2, bottom, ToPixel(scene_.Colors.Cursor));
        return;
    }
    const editor::ZoomLevel level = document.Level();
    const bool dragging = scene_.Drag.Mode == editor::DragMode::Selecting;
    const std::int32_t end = columnOf(dragging ? level.SelectDragEnd : level.EndSelect);
    surface.Fill({start, 2, end, bottom}, ToPixel(scene_.Colors.DarkSelectShade));
    const std::int32_t left = std::max(start, scene_.Thumb.Left);
    const std::int32_t right = std::min(end, scene_.Thumb.Left + scene_.Thumb.Width + 1);
    if (left < right)
        surface.Fill({left, 2, right, bottom}, ToPixel(scene_.Colors.LightSelectShade));
}

// Triangles that point into the selection.
void CursorPainter::DrawEdges(Surface& surface, const editor::ZoomLevel& level) const {
    const Rectangle& wave = scene_.Area.WaveArea;
    const std::int32_t margin = scene_.Area.LaneMargin;
    const Pixel color = ToPixel(scene_.Colors.Cursor);
    const std::int32_t start = wave.Left + scene_.Selection.Start;
    const std::int32_t end = wave.Left + scene_.Selection.End;
    for (std::int32_t d = margin; d >= 0; --d)
        for (const std::int32_t y : {wave.Top + margin - d, wave.Bottom - (margin - d)}) {
            if (InView(level.StartSelect))
                surface.Horizontal(start, std::min(start + d + 1, wave.Right), y, color);
            if (InView(level.EndSelect)) surface.Horizontal(end, end - d - 1, y, color);
        }
}

// A triangle above and below that points into the lane, and a dotted line between them.
void CursorPainter::DrawCursor(Surface& surface) const {
    const Rectangle& wave = scene_.Area.WaveArea;
    const std::int32_t margin = scene_.Area.LaneMargin;
    const Pixel color = ToPixel(scene_.Colors.Cursor);
    const std::int32_t x = wave.Left + scene_.Selection.Start;
    for (std::int32_t d = margin; d >= 0; --d)
        for (const std::int32_t y : {wave.Top + margin - d, wave.Bottom - (margin - d)})
            surface.Horizontal(std::max(x - d, wave.Left), std::min(x + d + 1, wave.Right), y,
                               color);
    const CursorRange range = CursorRangeOf(scene_.Area, scene_.Channels, scene_.Format.Channels);
    surface.VerticalDashes(x, wave.Top + range.Top, wave.Top + range.Bottom, kCursorDash,
                           kCursorPeriod, color);
}

void DrawPlayCursor(platform::DrawingTarget& target, const Rectangle& bounds, const Geometry& area,
                    const CursorRange& rows, std::int32_t column, Pixel color) {
    const std::int32_t x = bounds.Left + area.WaveArea.Left + column;
    const std::int32_t top = bounds.Top + area.WaveArea.Top;
    ForEachDash(
        top + rows.Top, top + rows.Bottom, kCursorDash, kCursorPeriod,
        [&](std::int32_t from, std::int32_t to) { target.DrawVertical(x, from, to, color.Value); });
}

}  // namespace mavrin2::view
