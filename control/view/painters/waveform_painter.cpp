#include "control/view/painters/waveform_painter.h"

#include <algorithm>
#include <cstdlib>

namespace mavrin2::view {
namespace {

constexpr std::int32_t kFullScale = 35000;

}  // namespace

WaveformPainter::WaveformPainter(const Scene& scene, const Lane& lane)
    : scene_(scene),
      lane_(lane.Area),
      low_(scene.Data.Low[lane.Channel]),
      high_(scene.Data.High[lane.Channel]),
      curve_(scene.Data.CloseUp[lane.Channel]),
      off_(scene.Format.Channels > 1 && !scene.Channels.Operation[lane.Channel]),
      full_(scene.Settings.VerticalZoom * kFullScale / 100),
      half_(lane.Area.Height() / 2),
      middle_(lane.Area.Top + half_) {}

WaveformPainter::Colors WaveformPainter::Outside() const {
    if (off_) return {scene_.Pen.Center, kGrey, kGrey, kGrey};
    const bool distant = scene_.Data.CloseUpLevel < 2;
    return {scene_.Pen.Center, scene_.Pen.Digital, distant ? scene_.Pen.Digital : scene_.Pen.Analog,
            scene_.Pen.Digital};
}

WaveformPainter::Colors WaveformPainter::Inside() const {
    if (off_) return {kGrey, kGrey, kGrey, kGrey};
    if (!scene_.Selected())
        return {scene_.Pen.Center, scene_.Pen.Digital, scene_.Pen.Analog, scene_.Pen.Digital};
    return {scene_.Pen.SelectCenter, scene_.Pen.SelectDigital, scene_.Pen.SelectAnalog,
            scene_.Pen.SelectDigital};
}

std::int64_t WaveformPainter::RawOffset(std::int32_t value) const {
    return std::int64_t{value} * half_ / full_;
}

WaveformPainter::Offset WaveformPainter::Clipped(std::int64_t offset) const {
    const std::int64_t most = std::max(half_, 0);
    if (std::abs(offset) <= most) return {static_cast<std::int32_t>(offset), false};
    return {static_cast<std::int32_t>(offset < 0 ? -most : most), true};
}

void WaveformPainter::Draw(Surface& surface) const {
    surface.Horizontal(lane_.Left, lane_.Right, middle_, scene_.Pen.Center);
    if (!scene_.HasSound()) return;
    if (scene_.OnlyCenterLine()) {
        surface.Horizontal(lane_.Left, lane_.Right, middle_, scene_.Pen.Digital);
        return;
    }
    DrawOutside(surface);
    if (scene_.Selection.Start != scene_.Selection.End) DrawInside(surface);
}

void WaveformPainter::DrawOutside(Surface& surface) const {
    const Colors colors = Outside();
    const std::int32_t width = scene_.Area.WaveWidth;
    if (scene_.Data.CloseUpLevel == 0) {
        DrawPeaks(surface, {0, scene_.Selection.Start}, colors.Peaks);
        DrawPeaks(surface, {scene_.Selection.End, width}, colors.Peaks);
        return;
    }
    const Columns before{1, scene_.Selection.Start + 1};
    const Columns behind{scene_.Selection.End + 1, width + 1};
    DrawCurve(surface, before, colors.Curve);
    DrawCurve(surface, behind, colors.Curve);
    DrawPoints(surface, before, colors.Points);
    DrawPoints(surface, behind, colors.Points);
}

void WaveformPainter::DrawInside(Surface& surface) const {
    const Colors colors = Inside();
    const std::int32_t start = scene_.Selection.Start;
    const std::int32_t end = scene_.Selection.End;
    if (scene_.Selected())
        surface.Horizontal(lane_.Left + start, lane_.Left + end + 1, middle_, colors.Center);
    if (scene_.Data.CloseUpLevel == 0) {
        DrawPeaks(surface, {start, end + 1}, colors.Peaks);
        return;
    }
    DrawCurve(surface, {start + 1, end + 1}, colors.Curve);
    DrawPoints(surface, {start + 1, end + 1}, colors.Points);
}

void WaveformPainter::DrawPeaks(Surface& surface, Columns columns, Pixel color) const {
    const std::int32_t end = std::min(columns.End, scene_.Data.Columns());
    for (std::int32_t x = columns.First; x < end; ++x) {
        const auto column = static_cast<std::size_t>(x);
        if (low_[column] > high_[column] || low_[column] == ViewData::EmptyColumn) continue;
        const std::int32_t high = Clipped(RawOffset(high_[column])).Value;
        std::int32_t low = Clipped(RawOffset(low_[column]) + 1).Value;
        if (high == low) ++low;
        surface.Vertical(lane_.Left + x, middle_ - high, middle_ - low, color);
    }
}

void WaveformPainter::DrawCurve(Surface& surface, Columns columns, Pixel color) const {
    const std::int32_t end = std::min(columns.End, scene_.Data.Columns());
    for (std::int32_t x = std::max(columns.First, 1); x < end; ++x) {
        const Offset from = Clipped(RawOffset(curve_[static_cast<std::size_t>(x - 1)]));
        const Offset to = Clipped(RawOffset(curve_[static_cast<std::size_t>(x)]));
        // Points beyond the edge are not drawn along it.
        if ((from.Clipped || to.Clipped) && from.Value == to.Value) continue;
        surface.Slope(lane_.Left + x - 1, middle_ - from.Value, middle_ - to.Value, color);
    }
}

void WaveformPainter::DrawPoints(Surface& surface, Columns columns, Pixel color) const {
    const std::int32_t level = scene_.Data.CloseUpLevel;
    if (level < 2) return;
    const std::int32_t end = std::min(columns.End, scene_.Data.Columns());
    for (std::int32_t x = columns.First; x < end; ++x) {
        const auto column = static_cast<std::size_t>(x);
        if (low_[column] == ViewData::EmptyColumn && high_[column] == ViewData::EmptyColumn)
            continue;
        const Offset offset = Clipped(RawOffset(curve_[column]));
        if (offset.Clipped) continue;
        const std::int32_t y = middle_ + 1 - offset.Value;
        const std::int32_t left = std::max(lane_.Left + x - level - 1, lane_.Left + 1);
        const std::int32_t right = std::min(lane_.Left + x + level, lane_.Right);
        surface.Fill({left, y - level - 1, right, y + level - 1}, color);
    }
}

}  // namespace mavrin2::view
