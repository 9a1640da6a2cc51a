#pragma once

#include "control/view/view_data.h"

namespace mavrin2::view {

// How the curve between samples is made.
enum class InterpolationMode : std::int16_t {
    Parabola = 1,  // through three samples at a time; quick, while sound plays
    Spline = 2     // a natural cubic spline
};

// How close a view of that many bytes in each column and channel is: see ViewData.
std::int16_t CloseUpLevelOf(double bytesPerColumn, std::int32_t frequency);

// Draws a curve through the samples that the columns 0 … `waveWidth` hold, for each channel.
void BuildCloseUpCurve(ViewData& data, std::int32_t channels, std::int32_t waveWidth,
                       InterpolationMode mode);

}  // namespace mavrin2::view
