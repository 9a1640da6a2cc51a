#pragma once

#include <functional>
#include <span>
#include <vector>

namespace mavrin2::kestrin {

// A stretch of frequencies, from 0 to 1 (half the rate), where a filter has one gain.
struct FilterBand {
    double From = 0;
    double To = 0;
    double Gain = 1;
    double Weight = 1;  // how much an error counts here beside the other bands
};

// The symmetrical filter of `taps` (odd, at least 3) whose largest weighted error over all bands is
// the smallest there is, found by the exchange of extremal frequencies: J. McClellan, T. Parks and
// L. Rabiner, "A computer program for designing optimum FIR linear phase digital filters" (1973).
// Between bands it does what it likes. Bands ascend and do not overlap; at least one of them.
// `pause` is called in each round, and may throw.
std::vector<float> ExchangeFilter(std::span<const FilterBand> bands, std::size_t taps,
                                  const std::function<void()>& pause);

}  // namespace mavrin2::kestrin
