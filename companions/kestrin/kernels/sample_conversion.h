#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace mavrin2::kestrin {

inline constexpr float kFullScale = 32768.0F;

// 16-bit samples as floating point, ±1 at full scale. Exact. Both spans have one length.
void ToFloat(std::span<const std::int16_t> from, std::span<float> to);

// Rounds to the nearest value, to the even one of two, and limits to −32768 … 32767. What is not a
// number becomes any of these. Both spans have one length. Returns how many were limited.
std::size_t ToSamples(std::span<const float> from, std::span<std::int16_t> to);

std::int16_t ToSample(float value);

}  // namespace mavrin2::kestrin
