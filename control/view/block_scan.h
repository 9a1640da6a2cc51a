#pragma once

#include <cstdint>
#include <span>

#include "control/view/view_data.h"

namespace mavrin2::view {

// Condenses a block of interleaved samples into the peaks of all columns of the wave area.
void ScanBlock(std::span<const std::int16_t> samples, std::int32_t channels, std::int32_t waveWidth,
               ViewData& data);

}  // namespace mavrin2::view
