#pragma once

#include <span>
#include <vector>

#include "control/editor/markers/marker_display_list.h"
#include "control/view/painters/edge_shapes.h"
#include "control/view/scene.h"
#include "control/view/surface.h"

namespace mavrin2::view {

// Markers: lines in the overview bar, and in the wave area flags with dotted lines between them.
class MarkerPainter {
public:
    MarkerPainter(const Scene& scene, editor::MarkerDisplayList& markers)
        : scene_(scene), markers_(markers) {}

    // Also notes in the list which markers are in view. When those are too many to be told apart,
    // no marker is drawn at all.
    void DrawMarkers(Surface& surface) const;

private:
    using Entry = editor::MarkerDisplayEntry;
    using Entries = std::span<const Entry>;

    Pixel ColorOf(const Entry& marker) const;
    void DrawInBar(Surface& surface, Entries markers) const;
    void DrawInLanes(Surface& surface, Entries inView) const;

    const Scene& scene_;
    editor::MarkerDisplayList& markers_;
};

}  // namespace mavrin2::view
