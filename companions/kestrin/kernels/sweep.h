#pragma once

#include <cmath>
#include <numbers>

namespace mavrin2::kestrin {

// A slow sine: the low-frequency oscillator of effects that sweep.
class Sweep {
public:
    // `phase` in degrees at the first sample.
    Sweep(double frequency, double phase, double rate)
        : perSample_(2 * std::numbers::pi * frequency / rate),
          phase_(phase * std::numbers::pi / 180) {}

    // −1 … 1, at a number of samples from the first one.
    double At(double sample) const { return std::sin(phase_ + perSample_ * sample); }

private:
    double perSample_;
    double phase_;
};

}  // namespace mavrin2::kestrin
