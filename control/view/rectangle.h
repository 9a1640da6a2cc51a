#pragma once

#include <algorithm>
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

// Rows of a picture from `First` up to but not including `End`.
struct RowRange {
    std::int32_t First = 0;
    std::int32_t End = 0;

    bool Contains(const RowRange& other) const { return First <= other.First && End >= other.End; }
    // Of a picture of that height, what there is of these.
    RowRange Within(std::int32_t height) const {
        const std::int32_t first = std::clamp(First, 0, std::max(height, 0));
        return {first, std::clamp(End, first, std::max(height, 0))};
    }
};

}  // namespace mavrin2::view
