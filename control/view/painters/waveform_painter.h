#pragma once

#include "control/view/geometry.h"
#include "control/view/scene.h"
#include "control/view/surface.h"

namespace mavrin2::view {

// The sound of one channel: peak columns, or from near a curve with points for the samples, in
// other colours where it is selected.
class WaveformPainter {
public:
    WaveformPainter(const Scene& scene, const Lane& lane);

    void Draw(Surface& surface) const;

private:
    struct Colors {
        Pixel Center, Peaks, Curve, Points;
    };
    // Columns from `First` to before `End`; the curve is drawn to each from the one before.
    struct Columns {
        std::int32_t First, End;
    };
    struct Offset {
        std::int32_t Value;  // pixels up from the middle
        bool Clipped;
    };

    Colors Outside() const;
    Colors Inside() const;
    std::int64_t RawOffset(std::int32_t value) const;
    // To the lane's edge.
    Offset Clipped(std::int64_t offset) const;
    void DrawOutside(Surface& surface) const;
    void DrawInside(Surface& surface) const;
    void DrawPeaks(Surface& surface, Columns columns, Pixel color) const;
    void DrawCurve(Surface& surface, Columns columns, Pixel color) const;
    void DrawPoints(Surface& surface, Columns columns, Pixel color) const;

    const Scene& scene_;
    const Rectangle& lane_;
    const ViewData::Entries& low_;
    const ViewData::Entries& high_;
    const ViewData::Entries& curve_;
    bool off_;           // not edited, and grey
    std::int32_t full_;  // the value at the lane's edge
    std::int32_t half_;  // pixels from the middle to there
    std::int32_t middle_;
};

}  // namespace mavrin2::view
