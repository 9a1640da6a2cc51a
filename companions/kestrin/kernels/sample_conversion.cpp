#include "companions/kestrin/kernels/sample_conversion.h"

#include <algorithm>
#include <bit>

namespace mavrin2::kestrin {
namespace {

// Adding it leaves no place for a fraction, so the addition rounds, and the last bits of the sum
// are the integer. Unlike std::lrint this becomes vector instructions.
constexpr float kRounder = 12582912.0F;  // 1.5 · 2²³

// The nearest integer, of values up to 64 times full scale.
inline std::int32_t Round(float value) {
    constexpr float kMost = 64 * kFullScale;
    const float scaled = value * kFullScale;
    const float high = scaled < kMost ? scaled : kMost;
    const float limited = high > -kMost ? high : -kMost;
    return std::bit_cast<std::int32_t>(limited + kRounder) - std::bit_cast<std::int32_t>(kRounder);
}

inline std::int32_t Limit(std::int32_t value) {
    return std::max(-32768, std::min(32767, value));
}

}  // namespace

void ToFloat(std::span<const std::int16_t> from, std::span<float> to) {
    for (std::size_t i = 0; i < from.size(); ++i)
        to[i] = static_cast<float>(from[i]) * (1 / kFullScale);
}

std::size_t ToSamples(std::span<const float> from, std::span<std::int16_t> to) {
    // As wide as what is compared, so that the loop becomes vector instructions.
    std::uint32_t limited = 0;
    for (std::size_t i = 0; i < from.size(); ++i) {
        const std::int32_t whole = Round(from[i]);
        const std::int32_t fitting = Limit(whole);
        to[i] = static_cast<std::int16_t>(fitting);
        limited += static_cast<std::uint32_t>(whole != fitting);
    }
    return limited;
}

std::int16_t ToSample(float value) {
    return static_cast<std::int16_t>(Limit(Round(value)));
}

}  // namespace mavrin2::kestrin
