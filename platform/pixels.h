#pragma once

#include <cstdint>

namespace mavrin2::platform {

// Pixels of 32 bits, 0x00RRGGBB, row by row from the top. Not owned.
struct Pixels {
    std::uint32_t* Data = nullptr;
    int Width = 0;
    int Height = 0;
    int Stride = 0;  // from one row to the next, in pixels
};

}  // namespace mavrin2::platform
