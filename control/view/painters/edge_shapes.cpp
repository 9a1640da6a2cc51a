#include "control/view/painters/edge_shapes.h"

#include <algorithm>

namespace mavrin2::view {

template <class Draw>
void EdgeShapes::ForEachRow(Draw&& draw) {
    const std::int32_t margin = area_.LaneMargin;
    for (std::int32_t d = margin; d >= 0; --d) {
        draw(d, area_.WaveArea.Top + margin - d);
        draw(d, area_.WaveArea.Bottom - (margin - d));
    }
}

void EdgeShapes::Limited(std::int32_t from, std::int32_t to, std::int32_t y, Pixel color) {
    surface_.Horizontal(std::max(from, area_.WaveArea.Left), std::min(to, area_.WaveArea.Right), y,
                        color);
}

void EdgeShapes::Triangle(std::int32_t x, Pixel color) {
    ForEachRow([&](std::int32_t d, std::int32_t y) { Limited(x - d, x + d + 1, y, color); });
}

void EdgeShapes::RightFlag(std::int32_t x, std::int32_t limit, Pixel color) {
    ForEachRow([&](std::int32_t d, std::int32_t y) {
        surface_.Horizontal(x, std::min(x + d + 1, limit), y, color);
    });
}

void EdgeShapes::LeftFlag(std::int32_t x, Pixel color) {
    ForEachRow(
        [&](std::int32_t d, std::int32_t y) { surface_.Horizontal(x, x - d - 1, y, color); });
}

void EdgeShapes::Block(std::int32_t x, Pixel color) {
    const std::int32_t margin = area_.LaneMargin;
    ForEachRow(
        [&](std::int32_t, std::int32_t y) { Limited(x - margin, x + margin + 1, y, color); });
}

void EdgeShapes::DottedLine(std::int32_t x, const CursorRange& rows, Pixel color) {
    const std::int32_t top = area_.WaveArea.Top;
    surface_.VerticalDashes(x, top + rows.Top, top + rows.Bottom, kLineDash, kLinePeriod, color);
}

}  // namespace mavrin2::view
