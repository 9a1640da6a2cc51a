#pragma once

#include "control/view/scene.h"
#include "control/view/surface.h"

namespace mavrin2::view {

// The strip that stands for the whole document, with the visible range in it, and the lines between
// two lanes.
class OverviewBarPainter {
public:
    OverviewBarPainter(const Scene& scene, const ViewThumb& thumb) : scene_(scene), thumb_(thumb) {}

    void Draw(Surface& surface) const;

private:
    void DrawBar(Surface& surface) const;
    void DrawSeparators(Surface& surface) const;

    const Scene& scene_;
    const ViewThumb& thumb_;
};

}  // namespace mavrin2::view
