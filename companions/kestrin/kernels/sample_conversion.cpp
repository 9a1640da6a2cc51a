#include "companions/kestrin/kernels/sample_conversion.h"

#include <bit>

namespace mavrin2::kestrin {
namespace {

// Adding it leaves no place for a fraction, so the addition rounds, and the last bits of the sum
// are the integer. Unlike std::lrint this becomes vector instructions.
constexpr float kRounder = 12582912.0F;  // 1.5 · 2²³

inline std::int16_t Round(float value) {
    const float scaled = value * kFullScale;
    const float high = scaled < 32767.0F ? scaled : 32767.0F;
    const float limited = high > -32768.0F ? high : -32768.0F;
    return static_cast<std::int16_t>(std::bit_cast<std::int32_t>(limited + kRounder) -
                                     std::bit_cast<std::int32_t>(kRounder));
}

}  // namespace

void ToFloat(std::span<const std::int16_t> from, std::span<float> to) {
    for (std::size_t i = 0; i < from.size(); ++i)
        to[i] = static_cast<float>(from[i]) * (1 / kFullScale);
}

void ToSamples(std::span<const float> from, std::span<std::int16_t> to) {
    for (std::size_t i = 0; i < from.size(); ++i)
        to[i] = Round(from[i]);
}

std::int16_t ToSample(float value) {
    return Round(value);
}

}  // namespace mavrin2::kestrin
