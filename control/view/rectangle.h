#pragma once

#include <cstdint>

namespace mavrin2::view {

// Pixels from `Left` and `Top` to `Right` and `Bottom`, without the last ones.
struct Rectangle {
    std::int32_t Left = 0;
    std::int32_t Top = 0;
    std::int32_t Right = 0;
    std::int32_t Bottom = 0;

    std::int32_t Width() const { return Right - Left; }
    std::int32_t Height() const { return Bottom - Top; }

    bool operator==(const Rectangle&) const = default;
};

}  // namespace mavrin2::view
