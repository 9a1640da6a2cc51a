#include "control/view/hls.h"

#include <algorithm>

namespace mavrin2::view {
namespace {

constexpr std::int32_t kRange = 140;
constexpr std::int32_t kSixth = 23;
constexpr std::int32_t kThird = 46;
constexpr std::int32_t kTwoThirds = 93;
constexpr std::int32_t kUndefinedHue = 93;  // of greys

std::int32_t Wrapped(std::int32_t hue) {
    if (hue < 0) return hue + kRange;
    return hue > kRange ? hue - kRange : hue;
}

std::int32_t Component(std::int32_t low, std::int32_t high, std::int32_t hue) {
    hue = Wrapped(hue);
    if (hue < kSixth) return low + ((high - low) * hue + 11) / kSixth;
    if (hue < kRange / 2) return high;
    if (hue < kTwoThirds) return low + ((high - low) * (kTwoThirds - hue) + 11) / kSixth;
    return low;
}

std::uint32_t Color(std::int32_t red, std::int32_t green, std::int32_t blue) {
    const auto part = [](std::int32_t value) {
        return static_cast<std::uint32_t>(std::clamp(value, 0, 255));
    };
    return part(red) | part(green) << 8 | part(blue) << 16;
}

}  // namespace

HlsColor ToHls(std::uint32_t color) {
    const auto red = static_cast<std::int32_t>(color & 0xFF);
    const auto green = static_cast<std::int32_t>(color >> 8 & 0xFF);
    const auto blue = static_cast<std::int32_t>(color >> 16 & 0xFF);
    const std::int32_t most = std::max({red, green, blue});
    const std::int32_t least = std::min({red, green, blue});
    const std::int32_t sum = most + least;
    const std::int32_t spread = most - least;
    HlsColor hls;
    hls.Lightness = (sum * kRange + 255) / 510;
    if (spread == 0) {
        hls.Hue = kUndefinedHue;
        return hls;
    }
    hls.Saturation = hls.Lightness <= kRange / 2
                         ? (spread * kRange + sum / 2) / sum
                         : (spread * kRange + (510 - sum) / 2) / (510 - sum);
    const auto distance = [&](std::int32_t part) {
        return ((most - part) * kSixth + spread / 2) / spread;
    };
    if (red == most)
        hls.Hue = distance(blue) - distance(green);
    else if (green == most)
        hls.Hue = kThird + distance(red) - distance(blue);
    else
        hls.Hue = kTwoThirds + distance(green) - distance(red);
    hls.Hue = Wrapped(hls.Hue);
    return hls;
}

std::uint32_t FromHls(const HlsColor& color) {
    const std::int32_t lightness = color.Lightness;
    const std::int32_t saturation = color.Saturation;
    if (saturation == 0) {
        const std::int32_t grey = lightness * 255 / kRange;
        return Color(grey, grey, grey);
    }
    const std::int32_t high = lightness <= kRange / 2
                                  ? (lightness * (kRange + saturation) + 70) / kRange
                                  : lightness + saturation - (lightness * saturation + 70) / kRange;
    const std::int32_t low = 2 * lightness - high;
    const auto part = [&](std::int32_t hue) {
        return (Component(low, high, hue) * 255 + 70) / kRange;
    };
    return Color(part(color.Hue + kThird), part(color.Hue), part(color.Hue - kThird));
}

std::uint32_t Darker(std::uint32_t color, std::int32_t lightness) {
    HlsColor hls = ToHls(color);
    hls.Lightness = std::clamp(hls.Lightness - lightness, 0, kRange);
    return FromHls(hls);
}

}  // namespace mavrin2::view
