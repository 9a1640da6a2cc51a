#include "control/view/surface.h"

#include <algorithm>
#include <utility>

namespace mavrin2::view {
namespace {

// The points of a line from `from` up to but not including `to`, in rising order and within
// `first` … `end` - 1.
std::pair<std::int64_t, std::int64_t> Span(std::int64_t from, std::int64_t to, std::int32_t first,
                                           std::int32_t end) {
    if (from > to) {
        std::swap(from, to);
        ++from;
        ++to;
    }
    return {std::max<std::int64_t>(from, first), std::min<std::int64_t>(to, end)};
}

}  // namespace

Surface::Surface(std::int32_t width, std::int32_t height, RowRange rows)
    : width_(std::max(width, 0)),
      height_(std::max(height, 0)),
      rows_(rows.Within(height)),
      pixels_(static_cast<std::size_t>(width_) *
              static_cast<std::size_t>(rows_.End - rows_.First)) {}

void Surface::Fill(const Rectangle& area, Pixel color) {
    const std::int32_t left = std::max(area.Left, 0);
    const std::int32_t right = std::min(area.Right, width_);
    if (left >= right) return;
    const std::int32_t bottom = std::min(area.Bottom, rows_.End);
    for (std::int32_t y = std::max(area.Top, rows_.First); y < bottom; ++y)
        std::fill(Row(y) + left, Row(y) + right, color.Value);
}

void Surface::Horizontal(std::int32_t x0, std::int32_t x1, std::int32_t y, Pixel color) {
    if (y < rows_.First || y >= rows_.End) return;
    const auto [from, to] = Span(x0, x1, 0, width_);
    if (from < to) std::fill(Row(y) + from, Row(y) + to, color.Value);
}

void Surface::Vertical(std::int32_t x, std::int32_t y0, std::int32_t y1, Pixel color) {
    if (x < 0 || x >= width_) return;
    const auto [from, to] = Span(y0, y1, rows_.First, rows_.End);
    if (from >= to) return;
    std::uint32_t* point = Row(static_cast<std::int32_t>(from)) + x;
    for (std::int64_t y = from; y < to; ++y, point += width_)
        *point = color.Value;
}

// The steep line of the textbook; a point halfway between the columns belongs to the first one.
void Surface::Slope(std::int32_t x, std::int32_t y0, std::int32_t y1, Pixel color) {
    const std::int32_t length = y1 > y0 ? y1 - y0 : y0 - y1;
    const std::int32_t direction = y1 < y0 ? -1 : 1;
    const std::int32_t turn = y0 + direction * (length / 2 + 1);
    Vertical(x, y0, turn, color);
    if (length > 1) Vertical(x + 1, turn, y1, color);
}

void Surface::HorizontalDashes(std::int32_t x0, std::int32_t x1, std::int32_t y, std::int32_t dash,
                               std::int32_t period, Pixel color) {
    ForEachDash(x0, x1, dash, period,
                [&](std::int32_t from, std::int32_t to) { Horizontal(from, to, y, color); });
}

void Surface::VerticalDashes(std::int32_t x, std::int32_t y0, std::int32_t y1, std::int32_t dash,
                             std::int32_t period, Pixel color) {
    ForEachDash(y0, y1, dash, period,
                [&](std::int32_t from, std::int32_t to) { Vertical(x, from, to, color); });
}

}  // namespace mavrin2::view
