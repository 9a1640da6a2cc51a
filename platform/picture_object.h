#pragma once

#include <cstdint>
#include <span>

#include "platform/automation.h"

namespace mavrin2::platform {

// Pixels here are 0x00BBGGRR, bottom row first, `width` in a row.

// A picture object with a copy of these pixels, which becomes the caller's.
HRESULT NewPicture(std::span<const std::uint32_t> pixels, int width, IPictureDisp** picture);

// The whole of a picture, scaled to that size. Any object with IPicture will do; fails for others,
// and when the picture does not draw itself. The pixels are undefined then.
HRESULT DrawPicture(IUnknown* picture, std::span<std::uint32_t> pixels, int width);

}  // namespace mavrin2::platform
