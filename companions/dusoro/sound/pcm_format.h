#pragma once

#include <cstdint>

namespace mavrin2::dusoro {

// Higher rates are taken for damage: a block of some seconds has to fit into memory.
inline constexpr std::int32_t kHighestRate = 1'000'000;

// Sound is converted to rates up to this many times its own, and down to this fraction of it.
inline constexpr std::int32_t kHighestRatio = 512;

// How 16-bit samples pass: frames in a second, and 1 or 2 interleaved channels.
struct PcmFormat {
    std::int32_t Rate = 0;
    std::int32_t Channels = 0;

    bool operator==(const PcmFormat&) const = default;
    bool IsUsable() const {
        return Rate >= 1 && Rate <= kHighestRate && (Channels == 1 || Channels == 2);
    }
};

}  // namespace mavrin2::dusoro
