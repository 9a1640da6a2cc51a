#pragma once

#include "control/view/lanes.h"
#include "control/view/scene.h"
#include "control/view/surface.h"

namespace mavrin2::view {

// The edges of the selection, or the edit cursor where nothing is selected, and either in the
// overview bar.
class CursorPainter {
public:
    CursorPainter(const Scene& scene, const ViewThumb& thumb) : scene_(scene), thumb_(thumb) {}

    void Draw(Surface& surface) const;

private:
    void DrawInBar(Surface& surface) const;
    void DrawEdges(Surface& surface, const editor::ZoomLevel& level) const;
    void DrawCursor(Surface& surface) const;
    bool InView(signal::Bytes position) const;

    const Scene& scene_;
    const ViewThumb& thumb_;
};

// Dashes of the edit and the play cursor.
inline constexpr std::int32_t kCursorDash = 2;
inline constexpr std::int32_t kCursorPeriod = 4;

}  // namespace mavrin2::view
