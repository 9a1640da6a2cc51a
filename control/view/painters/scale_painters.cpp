#include "control/view/painters/scale_painters.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace mavrin2::view {
namespace {

// The dashes of the lines that both scales draw across the waveform, in pixels.
constexpr std::int32_t kGridDash = 5;
constexpr std::int32_t kGridPeriod = 8;

}  // namespace

void TimeScalePainter::Draw(Surface& surface) const {
    const TimeScale& time = scene_.Time;
    if (!scene_.ScaleX.Visible || time.Step <= 0) return;
    const Geometry& area = scene_.Area;
    const Rectangle& wave = area.WaveArea;
    const std::int32_t top = wave.Bottom + 3;
    surface.Fill({2, top, surface.Width() - 2, top + area.TimeScale}, scene_.Pen.Face);

    const std::int32_t tick = area.TimeScale / 3;
    const std::int32_t firstLabel = scene_.ScaleY.Visible && scene_.LevelScaleLeft() ? 0 : 1;
    bool full = true;
    double value = time.FirstLabel;
    while (value <= time.Range.End) {
        const std::int32_t x = MajorColumn(value);
        if (wave.Left + x >= wave.Right) break;
        const bool shortened = time.Subdivisions == 5 && !full;
        full = !full;
        if (x >= 0)
            surface.Vertical(wave.Left + x, top, top + (shortened ? 4 * tick / 5 : tick),
                             scene_.Pen.Text);
        if (x >= firstLabel && area.TimeScale > 0) DrawLabel(surface, x, time.Label(value));
        if (x > 0) DrawGrid(surface, x);
        DrawMinorTicks(surface, value);
        value += time.Step;
    }
}

double TimeScalePainter::ColumnsAt(double value) const {
    const TimeRange& range = scene_.Time.Range;
    return scene_.Area.WaveWidth * (value - range.Start) / (range.End - range.Start);
}

// Rounded, and down in the middle.
std::int32_t TimeScalePainter::MajorColumn(double value) const {
    const double column = ColumnsAt(value);
    const double whole = std::floor(column);
    return static_cast<std::int32_t>(column - whole <= 0.5 ? whole : std::ceil(column));
}

void TimeScalePainter::DrawLabel(Surface& surface, std::int32_t x, const std::string& label) const {
    const platform::Font& font = scene_.ScaleXFont;
    const Rectangle& wave = scene_.Area.WaveArea;
    const std::int32_t half = font.Measure(label).Width / 2;
    // The unit is at the left.
    if (wave.Left + x + half >= surface.Width() - 3) return;
    if (wave.Left + x - half <= 1 + font.Measure("smpl").Width) return;
    surface.Text(font, wave.Left + x - half, wave.Bottom + 4 + scene_.Area.TimeScale / 3, label,
                 ToPixel(scene_.Colors.Font));
}

void TimeScalePainter::DrawGrid(Surface& surface, std::int32_t x) const {
    if (!scene_.ScaleX.Grid || scene_.Spectral()) return;
    const Rectangle& wave = scene_.Area.WaveArea;
    surface.VerticalDashes(wave.Left + x, wave.Top, wave.Bottom - 2, kGridDash, kGridPeriod,
                           scene_.Pen.Grid);
}

void TimeScalePainter::DrawMinorTicks(Surface& surface, double value) const {
    const TimeScale& time = scene_.Time;
    const Rectangle& wave = scene_.Area.WaveArea;
    const double part = time.Step / time.Subdivisions;
    const std::int32_t top = wave.Bottom + 3;
    double minor = value + part;
    while (minor < value + time.Step) {
        const auto x = static_cast<std::int32_t>(ColumnsAt(minor));
        if (wave.Left + x >= wave.Right) return;
        if (x > 0)
            surface.Vertical(wave.Left + x, top, top + scene_.Area.TimeScale / 3 / 2,
                             scene_.Pen.Text);
        minor += part;
    }
}

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
        surface.Text(scene_.ScaleYFont, textLeft_, y - lineHeight_ / 2, label,
                     ToPixel(scene_.Colors.Font));
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

void UnitLabelPainter::Draw(Surface& surface) const {
    const Geometry& area = scene_.Area;
    const Rectangle& wave = area.WaveArea;
    const Pixel color = ToPixel(scene_.Colors.Font);
    if (scene_.ScaleX.Visible && area.TimeScale > 0)
        surface.Text(scene_.ScaleXFont, 3, wave.Bottom + 4 + area.TimeScale / 3,
                     scene_.ScaleX.Type == 2 ? "hms" : "smpl", color);
    if (!scene_.ScaleY.Visible || area.LevelScale <= 0) return;
    // Above its scale, on either side.
    const std::int32_t left = scene_.LevelScaleLeft() ? wave.Left - area.LevelScale
                                                      : wave.Right + 6 + area.LevelScale / 5;
    surface.Text(scene_.ScaleYFont, left, wave.Top - area.OverviewBar - 5, LevelUnit(), color);
}

const char* UnitLabelPainter::LevelUnit() const {
    if (scene_.Spectral()) return "Hz";
    switch (scene_.ScaleY.Type) {
        case 3:
            return "dB";
        case 2:
            return "norm";
        default:
            return "smpl";
    }
}

}  // namespace mavrin2::view
