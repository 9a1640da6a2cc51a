#include "control/view/painters/level_scale_painter.h"

#include <algorithm>
#include <string>

#include "control/view/painters/grid.h"

namespace mavrin2::view {
namespace {

constexpr std::int32_t kTextInset = 6;

Rectangle StripOf(const Scene& scene) {
    const Geometry& area = scene.Area;
    const Rectangle& wave = area.WaveArea;
    const std::int32_t top = wave.Top - area.OverviewBar - 3;
    if (scene.LevelScaleLeft())
        return {wave.Left - area.LevelScale - 3, top, wave.Left - 2, wave.Bottom + 4};
    return {wave.Right + 3, top, wave.Right + area.LevelScale + 3, wave.Bottom + 4};
}

}  // namespace

LevelScalePainter::LevelScalePainter(const Scene& scene)
    : scene_(scene),
      shown_(scene.Area.LevelScale > 0),
      strip_(StripOf(scene)),
      tick_(scene.Area.LevelScale / 5),
      textLeft_(strip_.Left + kTextInset + (scene.LevelScaleLeft() ? 0 : tick_)),
      lineHeight_(scene.ScaleYFont.Measure("0").Height) {}

void LevelScalePainter::Draw(Surface& surface) const {
    if (!scene_.ScaleY.Visible || scene_.Level.Step < 1) return;
    surface.Fill(strip_, ToPixel(scene_.Colors.Scales));
    const Geometry& area = scene_.Area;
    const std::int32_t top = area.WaveArea.Top + area.LaneMargin + 2;
    const std::int32_t bottom = area.WaveArea.Bottom - area.LaneMargin;
    if (scene_.Channels.VisibleCount < 2) {
        DrawLane(surface, {top, bottom});
        return;
    }
    const std::int32_t height = (bottom - top) / 2 - 2;
    DrawLane(surface, {top, top + height});
    DrawLane(surface, {top + height + 4, top + 2 * height + 4});
}

void LevelScalePainter::DrawLane(Surface& surface, LabelLane lane) const {
    for (std::int32_t value = 0; value <= scene_.Level.Maximum; value += scene_.Level.Step) {
        DrawValue(surface, lane, value);
        if (shown_) DrawMinorTicks(surface, lane, value);
    }
}

std::int32_t LevelScalePainter::DistanceOf(LabelLane lane, std::int32_t value) const {
    const std::int64_t height = lane.Bottom - lane.Top;
    const auto distance =
        static_cast<std::int32_t>(value * height / std::max(scene_.Level.Maximum, 1));
    return scene_.Spectral() ? distance : distance / 2;
}

// The row of the value 0.
std::int32_t LevelScalePainter::ZeroOf(LabelLane lane) const {
    const std::int32_t height = lane.Bottom - lane.Top;
    return lane.Top + (scene_.Spectral() ? height : height / 2);
}

template <class DrawAt>
void LevelScalePainter::AtBothRows(LabelLane lane, std::int32_t value, DrawAt&& draw) const {
    const std::int32_t distance = DistanceOf(lane, value);
    draw(ZeroOf(lane) - distance);
    // The middle is its own mirror image; text drawn twice would be bold.
    if (!scene_.Spectral() && distance != 0) draw(ZeroOf(lane) + distance);
}

void LevelScalePainter::DrawTick(Surface& surface, std::int32_t y, std::int32_t length) const {
    if (scene_.LevelScaleLeft())
        surface.Horizontal(strip_.Right, strip_.Right - length, y, scene_.Pen.Text);
    else
        surface.Horizontal(strip_.Left, strip_.Left + length, y, scene_.Pen.Text);
}

void LevelScalePainter::DrawValue(Surface& surface, LabelLane lane, std::int32_t value) const {
    if (shown_) DrawLabel(surface, lane, value);
    if (scene_.ScaleY.Grid && !scene_.Spectral()) DrawGrid(surface, lane, value);
}

void LevelScalePainter::DrawLabel(Surface& surface, LabelLane lane, std::int32_t value) const {
    AtBothRows(lane, value, [&](std::int32_t y) { DrawTick(surface, y, tick_); });
    // Labels leave room for the unit above them.
    const std::int32_t half = ZeroOf(lane) - lane.Top;
    const bool room = lineHeight_ - scene_.Area.OverviewBar - 5 <
                      half - 1 - DistanceOf(lane, value) - lineHeight_ / 4;
    if (!room || (scene_.Spectral() && value == 0)) return;
    const bool decibels = scene_.ScaleY.Type == 3 && !scene_.Spectral();
    const std::string label = scene_.Level.Label(value, decibels);
    AtBothRows(lane, value, [&](std::int32_t y) {
        scene_.ScaleYFont.Draw(surface.AsPixels(), textLeft_, y - lineHeight_ / 2, label,
                               ToPixel(scene_.Colors.Font).Value);
    });
}

void LevelScalePainter::DrawGrid(Surface& surface, LabelLane lane, std::int32_t value) const {
    const Rectangle& wave = scene_.Area.WaveArea;
    AtBothRows(lane, value, [&](std::int32_t y) {
        surface.HorizontalDashes(wave.Left, wave.Right - 5, y, kGridDash, kGridPeriod,
                                 scene_.Pen.Grid);
    });
}

void LevelScalePainter::DrawMinorTicks(Surface& surface, LabelLane lane, std::int32_t value) const {
    const LevelScale& level = scene_.Level;
    const std::int32_t part = std::max(level.Step / std::max(level.Subdivisions, 1), 1);
    for (std::int32_t minor = value + part; minor < value + level.Step; minor += part)
        AtBothRows(lane, minor, [&](std::int32_t y) {
            if (y > lane.Top && y < lane.Bottom) DrawTick(surface, y, tick_ / 2);
        });
}

}  // namespace mavrin2::view
