#include "control/view/surface.h"

#include <algorithm>
#include <utility>

namespace mavrin2::view {
namespace {

// The points of a line from `from` up to but not including `to`, in rising order and within
// 0 … `size` - 1.
std::pair<std::int64_t, std::int64_t> Span(std::int64_t from, std::int64_t to, std::int32_t size) {
    if (from > to) {
        std::swap(from, to);
        ++from;
        ++to;
    }
    return {std::max<std::int64_t>(from, 0), std::min<std::int64_t>(to, size)};
}

}  // namespace

Surface::Surface(std::int32_t width, std::int32_t height)
    : width_(std::max(width, 0)),
      height_(std::max(height, 0)),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {}

void Surface::Fill(const Rectangle& area, Pixel color) {
    const std::int32_t left = std::max(area.Left, 0);
    const std::int32_t right = std::min(area.Right, width_);
    if (left >= right) return;
    const std::int32_t bottom = std::min(area.Bottom, height_);
    for (std::int32_t y = std::max(area.Top, 0); y < bottom; ++y)
        std::fill(Row(y) + left, Row(y) + right, color.Value);
}

void Surface::Horizontal(std::int32_t x0, std::int32_t x1, std::int32_t y, Pixel color) {
    if (y < 0 || y >= height_) return;
    const auto [from, to] = Span(x0, x1, width_);
    if (from < to) std::fill(Row(y) + from, Row(y) + to, color.Value);
}

void Surface::Vertical(std::int32_t x, std::int32_t y0, std::int32_t y1, Pixel color) {
    if (x < 0 || x >= width_) return;
    const auto [from, to] = Span(y0, y1, height_);
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

void Surface::CopyFrom(const Surface& other, const Rectangle& source, std::int32_t x,
                       std::int32_t y) {
    const std::int32_t left = std::max({source.Left, 0, source.Left - x});
    const std::int32_t right = std::min({source.Right, other.width_, source.Left + width_ - x});
    if (left >= right) return;
    const std::int32_t top = std::max({source.Top, 0, source.Top - y});
    const std::int32_t bottom = std::min({source.Bottom, other.height_, source.Top + height_ - y});
    for (std::int32_t row = top; row < bottom; ++row)
        std::copy(other.Row(row) + left, other.Row(row) + right,
                  Row(row - source.Top + y) + (left - source.Left + x));
}

}  // namespace mavrin2::view
