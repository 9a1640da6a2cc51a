#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "control/view/rectangle.h"
#include "platform/pixels.h"
#include "platform/text.h"

namespace mavrin2::view {

// A colour as pixels hold it, 0x00RRGGBB.
struct Pixel {
    std::uint32_t Value = 0;

    bool operator==(const Pixel&) const = default;
};

// Of a colour as automation writes it, 0x00BBGGRR.
constexpr Pixel ToPixel(std::uint32_t color) {
    return {(color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF)};
}

// A picture in memory, or a band of its rows, and the few operations it takes to draw the control.
// Coordinates are the picture's; whatever is outside of what there is in memory is left out. As on
// every system a line's last point is not drawn, so that lines can be joined.
class Surface {
public:
    Surface() = default;
    // Black. Sizes below 0 count as 0.
    Surface(std::int32_t width, std::int32_t height)
        : Surface(width, height, RowRange{0, std::max(height, 0)}) {}
    // A band of the picture, whose size is `width` and `height`.
    Surface(std::int32_t width, std::int32_t height, RowRange rows);

    std::int32_t Width() const { return width_; }
    std::int32_t Height() const { return height_; }
    RowRange Rows() const { return rows_; }
    bool Empty() const { return pixels_.empty(); }

    void Fill(const Rectangle& area, Pixel color);
    // From (x0, y) to (x1, y), in either direction.
    void Horizontal(std::int32_t x0, std::int32_t x1, std::int32_t y, Pixel color);
    // From (x, y0) to (x, y1), in either direction.
    void Vertical(std::int32_t x, std::int32_t y0, std::int32_t y1, Pixel color);
    // From one column to the next: (x, y0) to (x + 1, y1).
    void Slope(std::int32_t x, std::int32_t y0, std::int32_t y1, Pixel color);
    // Dashes of `dash` pixels, one every `period`, as long as they begin before the end; the last
    // one may end one pixel beyond it.
    void HorizontalDashes(std::int32_t x0, std::int32_t x1, std::int32_t y, std::int32_t dash,
                          std::int32_t period, Pixel color);
    void VerticalDashes(std::int32_t x, std::int32_t y0, std::int32_t y1, std::int32_t dash,
                        std::int32_t period, Pixel color);

    // One line whose cell has its upper left corner at (x, y).
    void Text(const platform::Font& font, std::int32_t x, std::int32_t y, std::string_view text,
              Pixel color) {
        font.Draw(AsPixels(), x, y - rows_.First, text, color.Value);
    }

    // All of a surface with the same rows of a picture of the same size.
    void CopyFrom(const Surface& other) { pixels_ = other.pixels_; }
    // Draws an area point by point: `rowAt(y, left, points)` fills a row's points from column
    // `left` on.
    template <class RowAt>
    void Plot(const Rectangle& area, RowAt&& rowAt);

    std::uint32_t* Row(std::int32_t y) {
        return pixels_.data() + static_cast<std::ptrdiff_t>(y - rows_.First) * width_;
    }
    const std::uint32_t* Row(std::int32_t y) const {
        return pixels_.data() + static_cast<std::ptrdiff_t>(y - rows_.First) * width_;
    }
    // What there is in memory.
    platform::Pixels AsPixels() {
        return {pixels_.data(), width_, rows_.End - rows_.First, width_};
    }

private:
    std::int32_t width_ = 0;
    std::int32_t height_ = 0;
    RowRange rows_;
    std::vector<std::uint32_t> pixels_;
};

template <class RowAt>
void Surface::Plot(const Rectangle& area, RowAt&& rowAt) {
    const std::int32_t left = std::max(area.Left, 0);
    const std::int32_t right = std::min(area.Right, width_);
    if (left >= right) return;
    const std::int32_t bottom = std::min(area.Bottom, rows_.End);
    for (std::int32_t y = std::max(area.Top, rows_.First); y < bottom; ++y)
        rowAt(y, left, std::span(Row(y) + left, static_cast<std::size_t>(right - left)));
}

// The first of each of the dashes' pixels and the one after the last: see Surface.
template <class Draw>
void ForEachDash(std::int32_t from, std::int32_t to, std::int32_t dash, std::int32_t period,
                 Draw&& draw) {
    for (std::int32_t at = from; at < to; at += period)
        draw(at, at + dash < to + 1 ? at + dash : to + 1);
}

}  // namespace mavrin2::view
