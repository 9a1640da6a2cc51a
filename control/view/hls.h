#pragma once

#include <cstdint>

namespace mavrin2::view {

// A colour by hue, lightness and saturation, each 0 … 140.
struct HlsColor {
    std::int32_t Hue = 0;
    std::int32_t Lightness = 0;
    std::int32_t Saturation = 0;
};

// Of and to a colour as automation writes it, 0x00BBGGRR, in whole numbers throughout.
HlsColor ToHls(std::uint32_t color);
std::uint32_t FromHls(const HlsColor& color);

// The same colour, darker by so much of the lightness; black at the least.
std::uint32_t Darker(std::uint32_t color, std::int32_t lightness);

}  // namespace mavrin2::view
