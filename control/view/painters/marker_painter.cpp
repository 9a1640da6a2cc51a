#include "control/view/painters/marker_painter.h"

#include <limits>

namespace mavrin2::view {
namespace {

constexpr std::int32_t kMostInView = 51;
constexpr std::int32_t kUnlimited = std::numeric_limits<std::int32_t>::max();

// The view, and what touches it: a marker that only spans it does not.
struct ViewedRange {
    Bytes Start;
    Bytes End;

    bool Has(Bytes position) const { return position >= Start && position <= End; }
    bool Touches(const editor::MarkerDisplayEntry& marker) const {
        return Has(marker.Position) || Has(marker.End());
    }
};

ViewedRange ViewOf(const Scene& scene) {
    const editor::ZoomLevel level = scene.Document->Level();
    return {level.StartView, level.EndView};
}

editor::MarkerDisplayList::VisibleRange TouchedBy(
    const ViewedRange& view, std::span<const editor::MarkerDisplayEntry> markers) {
    editor::MarkerDisplayList::VisibleRange visible;
    for (std::size_t i = 0; i < markers.size(); ++i) {
        if (!view.Touches(markers[i])) continue;
        visible.Last = static_cast<std::int32_t>(i);
        if (visible.First < 0) visible.First = visible.Last;
    }
    return visible;
}

// Vertical lines, of which a later one hides an earlier one in the same column. There may be very
// many, so that each column is drawn once.
class ColumnLines {
public:
    explicit ColumnLines(std::int32_t width) : colors_(static_cast<std::size_t>(width), kNone) {}

    void Add(std::int32_t x, Pixel color) {
        if (x >= 0 && static_cast<std::size_t>(x) < colors_.size())
            colors_[static_cast<std::size_t>(x)] = color.Value;
    }
    void Draw(Surface& surface, std::int32_t top, std::int32_t bottom) const {
        for (std::size_t x = 0; x < colors_.size(); ++x)
            if (colors_[x] != kNone)
                surface.Vertical(static_cast<std::int32_t>(x), top, bottom, {colors_[x]});
    }

private:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;  // no pixel's value

    std::vector<std::uint32_t> colors_;
};

}  // namespace

void MarkerPainter::DrawMarkers(Surface& surface) const {
    markers_.SetVisible({});
    if (!scene_.Document || scene_.Document->TotalBytes <= Bytes(0)) return;
    const Entries markers = markers_.Entries();
    if (markers.empty()) return;
    const auto visible = TouchedBy(ViewOf(scene_), markers);
    markers_.SetVisible(visible);
    if (visible.Last - visible.First >= kMostInView) return;
    DrawInBar(surface, markers);
    if (visible.First >= 0)
        DrawInLanes(surface,
                    markers.subspan(static_cast<std::size_t>(visible.First),
                                    static_cast<std::size_t>(visible.Last - visible.First) + 1));
}

Pixel MarkerPainter::ColorOf(const Entry& marker) const {
    if (scene_.Markers.BitmapType >= 1) return ToPixel(marker.Color);
    return ToPixel(marker.Length == Bytes(0) ? scene_.Colors.CueMarker : scene_.Colors.RangeMarker);
}

void MarkerPainter::DrawInBar(Surface& surface, Entries markers) const {
    const BarMapping bar(scene_.Area, scene_.Document->TotalBytes);
    ColumnLines lines(surface.Width());
    for (const Entry& marker : markers) {
        const Pixel color = ColorOf(marker);
        lines.Add(bar.ColumnOf(marker.Position), color);
        if (marker.Length != Bytes(0)) lines.Add(bar.ColumnOf(marker.End()), color);
    }
    lines.Draw(surface, 2, scene_.Area.OverviewBar + 3);
}

void MarkerPainter::DrawInLanes(Surface& surface, Entries inView) const {
    const ViewedRange view = ViewOf(scene_);
    const ColumnMapping columns = scene_.Columns();
    const CursorRange rows = MarkerRangeOf(scene_.Area, scene_.Channels, scene_.Format.Channels);
    const std::int32_t left = scene_.Area.WaveArea.Left;
    const std::int32_t selectionStart = left + scene_.Selection.Start;
    const std::int32_t selectionEnd = left + scene_.Selection.End;
    EdgeShapes shapes(surface, scene_.Area);
    // Lines of the selection are not drawn over.
    const auto isFree = [&](std::int32_t x) { return x != selectionStart && x != selectionEnd; };
    for (const Entry& marker : inView) {
        if (!view.Touches(marker)) continue;
        const Pixel color = ColorOf(marker);
        const bool isRange = marker.Length != Bytes(0);
        const std::int32_t start = left + columns.ByteToColumn(marker.Position);
        const std::int32_t end = left + columns.ByteToColumn(marker.End());
        const std::int32_t cut = left + columns.ByteToColumn(marker.Cut());
        const bool startInView = view.Has(marker.Position);
        const bool endInView = isRange && view.Has(marker.End());
        if (isRange) {
            if (startInView) shapes.RightFlag(start, kUnlimited, color);
            if (endInView) shapes.LeftFlag(end, color);
        } else if (startInView) {
            shapes.Triangle(start, color);
        }
        if (scene_.Markers.BarEnabled) {
            if (startInView && isFree(start)) shapes.DottedLine(start, rows, color);
            if (endInView && isFree(end)) shapes.DottedLine(end, rows, color);
        }
        if (marker.CutPoint != Bytes(0) && view.Has(marker.Cut()) && isFree(cut)) {
            shapes.Block(cut, color);
            shapes.DottedLine(cut, rows, color);
        }
    }
}

}  // namespace mavrin2::view
