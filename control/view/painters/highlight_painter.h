#pragma once

#include "control/view/scene.h"
#include "control/view/surface.h"

namespace mavrin2::view {

// The background of the selection. Range markers will have theirs below it.
class HighlightPainter {
public:
    explicit HighlightPainter(const Scene& scene) : scene_(scene) {}

    void Draw(Surface& surface) const;

private:
    const Scene& scene_;
};

}  // namespace mavrin2::view
