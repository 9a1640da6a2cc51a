#include "platform/coverage.h"

#include <algorithm>
#include <cstddef>

namespace mavrin2::platform {
namespace {

// Red and blue are mixed at once: neither product reaches the other's bits.
std::uint32_t Mixed(std::uint32_t below, std::uint32_t above, std::uint32_t part) {
    constexpr std::uint32_t kOuter = 0xFF00FF;
    constexpr std::uint32_t kInner = 0x00FF00;
    part += part >> 7;  // 0 … 256
    const std::uint32_t rest = 256 - part;
    return (((below & kOuter) * rest + (above & kOuter) * part) >> 8 & kOuter) |
           (((below & kInner) * rest + (above & kInner) * part) >> 8 & kInner);
}

}  // namespace

void Blend(const Pixels& target, int x, int y, const Coverage& coverage, std::uint32_t color) {
    // Wide enough for any place that a view may come up with.
    const std::int64_t left = std::int64_t{x} + coverage.Left;
    const std::int64_t top = std::int64_t{y} + coverage.Top;
    const std::int64_t first = std::max<std::int64_t>(left, 0);
    const std::int64_t end = std::min<std::int64_t>(left + coverage.Width, target.Width);
    const std::int64_t lastRow = std::min<std::int64_t>(top + coverage.Height, target.Height);
    for (std::int64_t row = std::max<std::int64_t>(top, 0); row < lastRow; ++row) {
        const std::uint8_t* parts =
            coverage.Values.data() + (row - top) * coverage.Width + (first - left);
        std::uint32_t* pixels = target.Data + row * target.Stride;
        for (std::int64_t column = first; column < end; ++column, ++parts)
            if (*parts != 0) pixels[column] = Mixed(pixels[column], color, *parts);
    }
}

}  // namespace mavrin2::platform
