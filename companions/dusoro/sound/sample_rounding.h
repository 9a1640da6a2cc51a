#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <type_traits>

// How every sample that is wider than 16 bits becomes one of 16 bits: rounded to the nearest, a tie
// to the even one, and limited.
namespace mavrin2::dusoro {

// `x` counts in steps of a 16-bit sample. What is not a number becomes silence.
template <class Float>
inline std::int16_t RoundSteps(Float x) {
    static_assert(std::is_floating_point_v<Float>);
    x = std::isnan(x) ? Float(0) : x;
    x = x > Float(-32768) ? x : Float(-32768);
    x = x < Float(32767) ? x : Float(32767);
    // Added to 1.5 x 2^(bits of the mantissa), a number of this size lands rounded in the low bits.
    if constexpr (sizeof(Float) == 4)
        return static_cast<std::int16_t>(std::bit_cast<std::int32_t>(x + 12582912.0f));
    else
        return static_cast<std::int16_t>(std::bit_cast<std::int64_t>(x + 6755399441055744.0));
}

// One sample of a decoder as 16 bits: floating point with full scale 1, integers of 8 (unsigned),
// 16, 32 and 64 bits with full scale at their own limit.
inline std::int16_t ToSample(float x) {
    return RoundSteps(x * 32768.0f);
}
inline std::int16_t ToSample(double x) {
    return RoundSteps(x * 32768.0);
}
inline std::int16_t ToSample(std::uint8_t x) {
    return static_cast<std::int16_t>((x - 128) * 256);
}
inline std::int16_t ToSample(std::int16_t x) {
    return x;
}
inline std::int16_t ToSample(std::int32_t x) {
    const std::int32_t whole = x >> 16;
    const std::int32_t rest = (x & 0xFFFF) + (whole & 1);
    const std::int32_t rounded = whole + (rest > 0x8000 ? 1 : 0);
    return static_cast<std::int16_t>(rounded < 32767 ? rounded : 32767);
}
inline std::int16_t ToSample(std::int64_t x) {
    // The bits below those of 32 only matter for a tie.
    const std::int64_t upper = x >> 32;
    return ToSample(static_cast<std::int32_t>(upper | ((x & 0xFFFFFFFF) != 0 ? 1 : 0)));
}

// The same sample as floating point with full scale 1, for sums of several channels.
inline float ToFloat(float x) {
    return x;
}
inline float ToFloat(double x) {
    return static_cast<float>(x);
}
inline float ToFloat(std::uint8_t x) {
    return static_cast<float>(x - 128) / 128.0f;
}
inline float ToFloat(std::int16_t x) {
    return static_cast<float>(x) / 32768.0f;
}
inline float ToFloat(std::int32_t x) {
    return static_cast<float>(x) / 2147483648.0f;
}
inline float ToFloat(std::int64_t x) {
    return static_cast<float>(x) / 9223372036854775808.0f;
}

// The mean of two samples, a tie to the even one.
inline std::int16_t MeanOf(std::int16_t left, std::int16_t right) {
    const std::int32_t sum = left + right;
    return static_cast<std::int16_t>((sum + ((sum >> 1) & 1)) >> 1);
}

}  // namespace mavrin2::dusoro
