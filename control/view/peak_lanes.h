#pragma once

#include <cstddef>
#include <cstdint>

namespace mavrin2::view {

// Eight columns at a time: each lane follows one column, since within a column every value depends
// on the one before. Vectors of the compiler's own, so that one source serves every processor.
using Lanes16 [[gnu::vector_size(16)]] = std::int16_t;
inline constexpr std::size_t kLanes = 8;

inline Lanes16 Choose(Lanes16 where, Lanes16 one, Lanes16 other) {
    return (where & one) | (~where & other);
}

// Halves of sums that may have 17 bits, rounded down and up.
inline Lanes16 MeanRoundedDown(Lanes16 a, Lanes16 b) {
    return (a & b) + ((a ^ b) >> 1);
}
inline Lanes16 MeanRoundedUp(Lanes16 a, Lanes16 b) {
    return (a | b) - ((a ^ b) >> 1);
}

// A new peak is averaged with what there was while both have one sign, so that a single spike does
// not stand for a whole column. Means are rounded toward zero.
struct SoftPeakLanes {
    Lanes16 Low, High;

    void Add(Lanes16 value) {
        const Lanes16 down = MeanRoundedDown(value, High);
        const Lanes16 up = MeanRoundedUp(value, High);
        const Lanes16 higher = Choose(High > 0, down, Choose(value < 0, up, value));
        High = Choose(value > High, higher, High);
        const Lanes16 lowDown = MeanRoundedDown(value, Low);
        const Lanes16 lowUp = MeanRoundedUp(value, Low);
        const Lanes16 lower = Choose(Low < 0, lowUp, Choose(value > 0, lowDown, value));
        Low = Choose(value < Low, lower, Low);
    }
};

struct PeakLanes {
    Lanes16 Low, High;

    void Add(Lanes16 value) {
        High = value > High ? value : High;
        Low = value < Low ? value : Low;
    }
};

}  // namespace mavrin2::view
