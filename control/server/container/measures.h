#pragma once

#include "control/view/rectangle.h"
#include "platform/automation.h"

namespace mavrin2::server {

// Between hundredths of a millimetre, in which containers state sizes, and the screen's pixels.
SIZE ToPixels(const SIZEL& extent);
SIZEL ToHimetric(const SIZE& pixels);

// `bounds` with its edges in ascending order. Throws StatusError when it is larger than
// any picture: 32767 pixels in one direction, or 2^26 of them.
view::Rectangle PictureBounds(const RECT& bounds);

// The rows of `bounds`, counted from its upper edge, that `clip` lets through.
view::RowRange RowsInside(const RECT& clip, const view::Rectangle& bounds);

}  // namespace mavrin2::server
