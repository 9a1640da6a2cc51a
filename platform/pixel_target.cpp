#include "platform/pixel_target.h"

#include <algorithm>

namespace mavrin2::platform {

PixelTarget::PixelTarget(const Pixels& pixels, POINT origin, const RECT& clip)
    : pixels_(pixels), origin_(origin) {
    clip_.left = std::clamp<LONG>(clip.left, 0, pixels.Width);
    clip_.top = std::clamp<LONG>(clip.top, 0, pixels.Height);
    clip_.right = std::clamp<LONG>(clip.right, clip_.left, pixels.Width);
    clip_.bottom = std::clamp<LONG>(clip.bottom, clip_.top, pixels.Height);
}

void PixelTarget::Blit(int x, int y, const Pixels& pixels) {
    // Wide enough for whatever a host may give as a place.
    const std::int64_t left = std::int64_t{origin_.x} + x;
    const std::int64_t top = std::int64_t{origin_.y} + y;
    const std::int64_t first = std::max<std::int64_t>(left, clip_.left);
    const std::int64_t end = std::min<std::int64_t>(left + pixels.Width, clip_.right);
    const std::int64_t lastRow = std::min<std::int64_t>(top + pixels.Height, clip_.bottom);
    if (first >= end) return;
    for (std::int64_t row = std::max<std::int64_t>(top, clip_.top); row < lastRow; ++row) {
        const std::uint32_t* source = pixels.Data + (row - top) * pixels.Stride + (first - left);
        std::copy_n(source, end - first, pixels_.Data + row * pixels_.Stride + first);
    }
}

void PixelTarget::DrawVertical(int x, int top, int bottom, std::uint32_t color) {
    const std::int64_t column = std::int64_t{origin_.x} + x;
    if (column < clip_.left || column >= clip_.right) return;
    const std::int64_t end = std::min<std::int64_t>(std::int64_t{origin_.y} + bottom, clip_.bottom);
    for (auto row = std::max<std::int64_t>(std::int64_t{origin_.y} + top, clip_.top); row < end;
         ++row)
        pixels_.Data[row * pixels_.Stride + column] = color;
}

RECT PixelTarget::Clip() const {
    return {clip_.left - origin_.x, clip_.top - origin_.y, clip_.right - origin_.x,
            clip_.bottom - origin_.y};
}

}  // namespace mavrin2::platform
