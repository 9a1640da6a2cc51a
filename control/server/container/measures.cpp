#include "control/server/container/measures.h"

#include <algorithm>
#include <limits>

#include "automation/guarded.h"
#include "platform/control_window.h"

namespace mavrin2::server {
namespace {

constexpr std::int64_t kHimetricPerInch = 2540;

// Rounded to the nearest.
LONG Scale(LONG value, std::int64_t numerator, std::int64_t denominator) {
    const std::int64_t product = value * numerator;
    const std::int64_t half = product < 0 ? -denominator / 2 : denominator / 2;
    return static_cast<LONG>(std::clamp<std::int64_t>((product + half) / denominator,
                                                      std::numeric_limits<LONG>::min(),
                                                      std::numeric_limits<LONG>::max()));
}

}  // namespace

SIZE ToPixels(const SIZEL& extent) {
    const SIZE dots = platform::ScreenResolution();
    return {Scale(extent.cx, dots.cx, kHimetricPerInch),
            Scale(extent.cy, dots.cy, kHimetricPerInch)};
}

SIZEL ToHimetric(const SIZE& pixels) {
    const SIZE dots = platform::ScreenResolution();
    return {Scale(pixels.cx, kHimetricPerInch, dots.cx),
            Scale(pixels.cy, kHimetricPerInch, dots.cy)};
}

view::Rectangle PictureBounds(const RECT& bounds) {
    constexpr std::int64_t kLongest = 32767;
    constexpr std::int64_t kMostPixels = std::int64_t{1} << 26;
    const auto [left, right] = std::minmax<std::int64_t>({bounds.left, bounds.right});
    const auto [top, bottom] = std::minmax<std::int64_t>({bounds.top, bounds.bottom});
    const std::int64_t width = right - left;
    const std::int64_t height = bottom - top;
    if (width > kLongest || height > kLongest || width * height > kMostPixels)
        throw automation::StatusError{E_OUTOFMEMORY};
    return {static_cast<std::int32_t>(left), static_cast<std::int32_t>(top),
            static_cast<std::int32_t>(right), static_cast<std::int32_t>(bottom)};
}

view::RowRange RowsInside(const RECT& clip, const view::Rectangle& bounds) {
    const auto rowAt = [&](LONG y) {
        return static_cast<std::int32_t>(
            std::clamp<std::int64_t>(std::int64_t{y} - bounds.Top, 0, bounds.Height()));
    };
    return {rowAt(clip.top), rowAt(clip.bottom)};
}

}  // namespace mavrin2::server
