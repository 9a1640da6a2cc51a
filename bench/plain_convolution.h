#pragma once

#include <span>

namespace mavrin2::bench {

// What one would write first: a loop over the taps in a loop over the outputs. Inputs before the
// block are 0.
void ConvolvePlainly(std::span<const double> input, std::span<const double> taps,
                     std::span<double> output);

}  // namespace mavrin2::bench
