#pragma once

#include <span>

#include "control/editor/markers/marker_display_list.h"
#include "control/view/scene.h"
#include "control/view/surface.h"

namespace mavrin2::view {

// The backgrounds of range markers in the lanes, and that of the selection over them.
class HighlightPainter {
public:
    // Markers sorted by position.
    HighlightPainter(const Scene& scene, std::span<const editor::MarkerDisplayEntry> markers)
        : scene_(scene), markers_(markers) {}

    void Draw(Surface& surface) const;

private:
    struct Rows {
        std::int32_t Top, Bottom;
    };
    // Where both channels are shown and one is edited, only its half: the upper one up to
    // `upperEnd`, the lower one from `lowerStart` on.
    Rows EditedRows(std::int32_t upperEnd, std::int32_t lowerStart) const;
    void DrawRangeMarkers(Surface& surface) const;
    void DrawSelection(Surface& surface) const;

    const Scene& scene_;
    std::span<const editor::MarkerDisplayEntry> markers_;
};

}  // namespace mavrin2::view
