#pragma once

#include <string>

#include "control/view/scene.h"
#include "control/view/surface.h"

namespace mavrin2::view {

// The scale below the waveform, with its grid across it.
class TimeScalePainter {
public:
    explicit TimeScalePainter(const Scene& scene) : scene_(scene) {}

    void Draw(Surface& surface) const;

private:
    double ColumnsAt(double value) const;
    std::int32_t MajorColumn(double value) const;
    void DrawLabel(Surface& surface, std::int32_t x, const std::string& label) const;
    void DrawGrid(Surface& surface, std::int32_t x) const;
    void DrawMinorTicks(Surface& surface, double value) const;

    const Scene& scene_;
};

}  // namespace mavrin2::view
