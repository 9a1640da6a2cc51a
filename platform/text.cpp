#include "platform/text.h"

#include <algorithm>

namespace mavrin2::platform {

int EmPixels(const FontDescription& description) {
    constexpr std::int64_t Largest = 2000;
    constexpr std::int64_t PointUnits = 10000;
    const std::int64_t size = std::clamp<std::int64_t>(description.Size, 0, Largest * PointUnits);
    const std::int64_t pixels = (size * 96 / 72 + PointUnits / 2) / PointUnits;
    return static_cast<int>(std::clamp<std::int64_t>(pixels, 1, Largest));
}

}  // namespace mavrin2::platform
