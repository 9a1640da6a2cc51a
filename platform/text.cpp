#include "platform/text.h"

#include <algorithm>

namespace mavrin2::platform {

int EmPixels(const FontDescription& description) {
    constexpr std::int64_t kLargest = 2000;
    constexpr std::int64_t kPointUnits = 10000;
    const std::int64_t size = std::clamp<std::int64_t>(description.Size, 0, kLargest * kPointUnits);
    const std::int64_t pixels = (size * 96 / 72 + kPointUnits / 2) / kPointUnits;
    return static_cast<int>(std::clamp<std::int64_t>(pixels, 1, kLargest));
}

}  // namespace mavrin2::platform
