#pragma once

namespace mavrin2::kestrin {

// Far below the last of 16 bits. Added to what goes round in a loop, or used as the limit below
// which a state becomes 0, it keeps numbers out of the range where processors compute slowly.
inline constexpr float kQuietFloor = 1e-18F;

template <class Number>
void FlushToZero(Number& state) {
    if (state < Number(kQuietFloor) && state > -Number(kQuietFloor)) state = 0;
}

}  // namespace mavrin2::kestrin
