#pragma once

#include "control/view/geometry.h"
#include "control/view/scene.h"
#include "control/view/surface.h"
#include "platform/drawing_target.h"

namespace mavrin2::view {

// The edges of the selection, or the edit cursor where nothing is selected, and either in the
// overview bar.
class CursorPainter {
public:
    explicit CursorPainter(const Scene& scene) : scene_(scene) {}

    void Draw(Surface& surface) const;

private:
    void DrawInBar(Surface& surface) const;
    void DrawEdges(Surface& surface, const editor::ZoomLevel& level) const;
    void DrawCursor(Surface& surface) const;

    const Scene& scene_;
};

// The place that is played, on a target that shows the frame at `bounds`: drawn over the copied
// frame, so that moving it costs no composition.
void DrawPlayCursor(platform::DrawingTarget& target, const Rectangle& bounds, const Geometry& area,
                    const CursorRange& rows, std::int32_t column, Pixel color);

}  // namespace mavrin2::view
