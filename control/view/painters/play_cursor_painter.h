#pragma once

#include "control/view/rectangle.h"
#include "control/view/scene.h"
#include "platform/drawing_target.h"

namespace mavrin2::view {

// The place that is played. It is drawn on the target over the copied frame, so that moving it
// costs no composition.
class PlayCursorPainter {
public:
    explicit PlayCursorPainter(const Scene& scene) : scene_(scene) {}

    // On a target that shows the frame at `bounds`. Nothing while no sound is played.
    void Draw(platform::DrawingTarget& target, const Rectangle& bounds) const;

private:
    const Scene& scene_;
};

}  // namespace mavrin2::view
