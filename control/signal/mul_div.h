#pragma once

#include <cstdint>

namespace mavrin2::signal {

// a × b ÷ c through 64 bits, rounded to the nearest integer, halves away from zero; −1 when c is 0
// or the result does not fit.
constexpr std::int32_t MulDiv(std::int32_t a, std::int32_t b, std::int32_t c) {
    if (c == 0) return -1;
    std::int64_t product = std::int64_t{a} * b;
    std::int64_t divisor = c;
    if (divisor < 0) {
        divisor = -divisor;
        product = -product;
    }
    const std::int64_t half = divisor / 2;
    const std::int64_t result = (product < 0 ? product - half : product + half) / divisor;
    if (result > INT32_MAX || result < INT32_MIN) return -1;
    return static_cast<std::int32_t>(result);
}

}  // namespace mavrin2::signal
