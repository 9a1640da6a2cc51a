#include "hosts/script/picture/transparency.h"

#include <algorithm>
#include <cstddef>

namespace mavrin2::script {
namespace {

constexpr std::uint32_t kMost = 255;

// Over black a colour c of opacity a is seen as a·c, over white as a·c + 1 − a: their difference is
// 1 − a.
std::uint32_t Separate(std::uint32_t black, std::uint32_t white) {
    if (black == white) return kMost << 24 | black;
    const auto part = [](std::uint32_t pixel, int shift) { return pixel >> shift & kMost; };
    std::uint32_t opacity = 0;
    for (const int shift : {16, 8, 0})
        opacity = std::max(
            opacity, kMost + part(black, shift) - std::max(part(white, shift), part(black, shift)));
    if (opacity == 0) return 0;
    std::uint32_t pixel = opacity << 24;
    for (const int shift : {16, 8, 0})
        pixel |= std::min((part(black, shift) * kMost + opacity / 2) / opacity, kMost) << shift;
    return pixel;
}

}  // namespace

void FindTransparency(const platform::Pixels& overBlack, const platform::Pixels& overWhite) {
    for (int y = 0; y < overBlack.Height; ++y) {
        std::uint32_t* const black =
            overBlack.Data + static_cast<std::ptrdiff_t>(y) * overBlack.Stride;
        const std::uint32_t* const white =
            overWhite.Data + static_cast<std::ptrdiff_t>(y) * overWhite.Stride;
        std::transform(black, black + overBlack.Width, white, black, &Separate);
    }
}

}  // namespace mavrin2::script
