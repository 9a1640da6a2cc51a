#pragma once

#include "control/view/scene.h"
#include "control/view/surface.h"

namespace mavrin2::view {

// What the numbers of the scales count.
class UnitLabelPainter {
public:
    explicit UnitLabelPainter(const Scene& scene) : scene_(scene) {}

    void Draw(Surface& surface) const;

private:
    const char* LevelUnit() const;

    const Scene& scene_;
};

}  // namespace mavrin2::view
