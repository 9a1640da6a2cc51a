#include "control/view/painters/unit_label_painter.h"

namespace mavrin2::view {

void UnitLabelPainter::Draw(Surface& surface) const {
    const Geometry& area = scene_.Area;
    const Rectangle& wave = area.WaveArea;
    const std::uint32_t color = ToPixel(scene_.Colors.Font).Value;
    if (scene_.ScaleX.Visible && area.TimeScale > 0)
        scene_.ScaleXFont.Draw(surface.AsPixels(), 3, wave.Bottom + 4 + area.TimeScale / 3,
                               scene_.ScaleX.Type == 2 ? "hms" : "smpl", color);
    if (!scene_.ScaleY.Visible || area.LevelScale <= 0) return;
    // Above its scale, wherever that stands.
    const std::int32_t left = scene_.LevelScaleLeft() ? wave.Left - area.LevelScale
                                                      : wave.Right + 6 + area.LevelScale / 5;
    scene_.ScaleYFont.Draw(surface.AsPixels(), left, wave.Top - area.OverviewBar - 5, LevelUnit(),
                           color);
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
