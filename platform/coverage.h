#pragma once

#include <cstdint>
#include <vector>

#include "platform/pixels.h"

namespace mavrin2::platform {

// How much of each pixel something drawn covers, 0 … 255, row by row from the top.
struct Coverage {
    int Left = 0;  // of the first pixel, from the point it is drawn at
    int Top = 0;
    int Width = 0;
    int Height = 0;
    std::vector<std::uint8_t> Values;
};

// `color` is 0x00RRGGBB. Parts outside of the pixels are left out.
void Blend(const Pixels& target, int x, int y, const Coverage& coverage, std::uint32_t color);

}  // namespace mavrin2::platform
