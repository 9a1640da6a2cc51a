#pragma once

#include "control/view/scene.h"
#include "control/view/surface.h"

namespace mavrin2::view {

// The frame around the control and the edges of the areas in it.
class BorderPainter {
public:
    explicit BorderPainter(const Scene& scene) : scene_(scene) {}

    void Draw(Surface& surface) const;

private:
    void DrawFrame(Surface& surface) const;
    void DrawAreaEdges(Surface& surface) const;

    const Scene& scene_;
};

}  // namespace mavrin2::view
