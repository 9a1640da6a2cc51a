#pragma once

#include "control/editor/view_state.h"
#include "control/view/view_data.h"

namespace mavrin2::view {

using editor::InterpolationMode;

// From how many bytes in each column and channel on a view is not close any more, for sample rates
// below 8000 Hz, above 23000 Hz and in between.
struct CloseUpLimits {
    double Low, High, Between;
};
inline constexpr CloseUpLimits kDocumentLimits{12, 40, 25};
inline constexpr CloseUpLimits kLiveLimits{12, 60, 24};

// How close a view of that many bytes in each column and channel is: see ViewData.
std::int16_t CloseUpLevelOf(double bytesPerColumn, std::int32_t frequency,
                            const CloseUpLimits& limits = kDocumentLimits);

// Draws a curve through the samples that the columns 0 … `waveWidth` hold, for each channel.
void BuildCloseUpCurve(ViewData& data, std::int32_t channels, std::int32_t waveWidth,
                       InterpolationMode mode);

}  // namespace mavrin2::view
