#pragma once

#include <cstdint>

#include "control/view/geometry.h"
#include "control/view/surface.h"

namespace mavrin2::view {

// Dashes of vertical lines across the wave area.
inline constexpr std::int32_t kLineDash = 2;
inline constexpr std::int32_t kLinePeriod = 4;

// What marks a column of the picture in the wave area: a shape in the margin above the lanes, its
// mirror image in the margin below, and a dotted line between them.
class EdgeShapes {
public:
    EdgeShapes(Surface& surface, const Geometry& area) : surface_(surface), area_(area) {}

    // Points into the lanes; cut off at the wave area's sides.
    void Triangle(std::int32_t x, Pixel color);
    // Points right, but not past `limit`.
    void RightFlag(std::int32_t x, std::int32_t limit, Pixel color);
    void LeftFlag(std::int32_t x, Pixel color);
    // As wide as a triangle, cut off like it.
    void Block(std::int32_t x, Pixel color);
    void DottedLine(std::int32_t x, const CursorRange& rows, Pixel color);

private:
    // draw(d, y) for both rows at each distance d from the lanes' side.
    template <class Draw>
    void ForEachRow(Draw&& draw);
    void Limited(std::int32_t from, std::int32_t to, std::int32_t y, Pixel color);

    Surface& surface_;
    const Geometry& area_;
};

}  // namespace mavrin2::view
