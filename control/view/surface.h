#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "control/view/rectangle.h"
#include "platform/pixels.h"

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

// A picture in memory and the few operations it takes to draw the control. Whatever is outside of
// it is left out. As on every system a line's last point is not drawn, so that lines can be joined.
class Surface {
public:
    Surface() = default;
    // Black. Sizes below 0 count as 0.
    Surface(std::int32_t width, std::int32_t height);

    std::int32_t Width() const { return width_; }
    std::int32_t Height() const { return height_; }
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

    // All of a surface of the same size.
    void CopyFrom(const Surface& other) { pixels_ = other.pixels_; }
    // `source`, a part of `other`, with its upper left corner at (x, y).
    void CopyFrom(const Surface& other, const Rectangle& source, std::int32_t x, std::int32_t y);

    std::uint32_t* Row(std::int32_t y) {
        return pixels_.data() + static_cast<std::ptrdiff_t>(y) * width_;
    }
    const std::uint32_t* Row(std::int32_t y) const {
        return pixels_.data() + static_cast<std::ptrdiff_t>(y) * width_;
    }
    platform::Pixels AsPixels() { return {pixels_.data(), width_, height_, width_}; }

private:
    std::int32_t width_ = 0;
    std::int32_t height_ = 0;
    std::vector<std::uint32_t> pixels_;
};

// The first of each of the dashes' pixels and the one after the last: see Surface.
template <class Draw>
void ForEachDash(std::int32_t from, std::int32_t to, std::int32_t dash, std::int32_t period,
                 Draw&& draw) {
    for (std::int32_t at = from; at < to; at += period)
        draw(at, at + dash < to + 1 ? at + dash : to + 1);
}

}  // namespace mavrin2::view
