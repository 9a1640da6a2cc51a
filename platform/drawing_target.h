#pragma once

#include <cstdint>
#include <memory>

#include "platform/automation.h"
#include "platform/pixels.h"

namespace mavrin2::platform {

// What a host gives the control to draw on: a window or its own drawing context. Coordinates
// are the target's; parts outside of it are left out. Used on the control's thread.
class DrawingTarget {
public:
    virtual ~DrawingTarget() = default;

    // Copies all pixels, with the upper left one at (x, y).
    virtual void Blit(int x, int y, const Pixels& pixels) = 0;
    // One column of pixels, from `top` to `bottom` without it. `color` is 0x00RRGGBB.
    virtual void DrawVertical(int x, int top, int bottom, std::uint32_t color) = 0;
    // What is not outside of it, as far as that is known.
    virtual RECT Clip() const = 0;
};

// The target for a handle of the system, which has to live as long; null for a null handle. Its
// coordinates are pixels: what a host has set up for drawing in other units is suspended meanwhile.
std::unique_ptr<DrawingTarget> TargetOf(HDC handle);

// The pixels that a rectangle in the host's own units covers, asked before the target is taken. As
// with any rectangle that comes from a host, the last may be before the first.
RECT PixelsOf(HDC handle, const RECTL& bounds);

}  // namespace mavrin2::platform
