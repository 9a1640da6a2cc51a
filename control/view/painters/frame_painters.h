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

// The strip that represents the whole document, with the visible range in it, and the lines between
// two lanes.
class OverviewBarPainter {
public:
    explicit OverviewBarPainter(const Scene& scene) : scene_(scene) {}

    void Draw(Surface& surface) const;

private:
    void DrawBar(Surface& surface) const;
    void DrawSeparators(Surface& surface) const;

    const Scene& scene_;
};

}  // namespace mavrin2::view
