#include "control/view/painters/time_scale_painter.h"

#include <cmath>

#include "control/view/painters/grid.h"

namespace mavrin2::view {

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
    // The unit stands at the left.
    if (wave.Left + x + half >= surface.Width() - 3) return;
    if (wave.Left + x - half <= 1 + font.Measure("smpl").Width) return;
    font.Draw(surface.AsPixels(), wave.Left + x - half, wave.Bottom + 4 + scene_.Area.TimeScale / 3,
              label, ToPixel(scene_.Colors.Font).Value);
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

}  // namespace mavrin2::view
