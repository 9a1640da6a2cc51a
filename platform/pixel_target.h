#pragma once

#include "platform/drawing_target.h"

namespace mavrin2::platform {

// Draws into pixels owned by the caller.
class PixelTarget : public DrawingTarget {
public:
    explicit PixelTarget(const Pixels& pixels)
        : PixelTarget(pixels, {0, 0}, {0, 0, pixels.Width, pixels.Height}) {}
    // (0, 0) of the target is at `origin` in the pixels, and nothing outside of `clip`, a
    // rectangle of the pixels too, is touched.
    PixelTarget(const Pixels& pixels, POINT origin, const RECT& clip);

    void Blit(int x, int y, const Pixels& pixels) override;
    void DrawVertical(int x, int top, int bottom, std::uint32_t color) override;
    RECT Clip() const override;

private:
    Pixels pixels_;
    POINT origin_;
    RECT clip_;
};

}  // namespace mavrin2::platform
