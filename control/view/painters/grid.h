#pragma once

#include <cstdint>

namespace mavrin2::view {

// The dashes of the lines that both scales draw across the waveform, in pixels.
inline constexpr std::int32_t kGridDash = 5;
inline constexpr std::int32_t kGridPeriod = 8;

}  // namespace mavrin2::view
