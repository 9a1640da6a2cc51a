#pragma once

namespace mavrin2::signal {

// When the samples of two rates happen, in seconds. Times are quotients and comparisons exact, so
// every version of this arithmetic must round alike. Rates fit in 32 bits, indexes in 31.
struct TimeGrid {
    double InputRate;
    double OutputRate;
    double Phase;   // time of output sample 0
    double Oldest;  // 0 or 1: index of the first sample of the block

    double TimeOfOutput(double output) const { return output / OutputRate + Phase; }
    double TimeOfInput(double index) const { return index / InputRate; }

    // The first input sample of the block whose time is not before `time`.
    double IndexAt(double time) const {
        // Adding 1.5 × 2^52 leaves no digits after the point. The true index is the nearest one to
        // the product, or the next.
        constexpr double rounder = 6755399441055744.0;
        const double nearest = (time * InputRate + rounder) - rounder;
        const double index = nearest + (TimeOfInput(nearest) < time ? 1.0 : 0.0);
        return index < Oldest ? Oldest : index;
    }
};

}  // namespace mavrin2::signal
