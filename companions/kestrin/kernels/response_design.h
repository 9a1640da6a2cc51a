#pragma once

#include <functional>
#include <span>
#include <vector>

#include "companions/kestrin/kernels/libraries.h"

namespace mavrin2::kestrin {

// A gain at every frequency, from 0 to 1 (half the rate).
using GainCurve = std::function<double(double)>;

// A filter of `taps` (odd) that turns no phase: symmetrical about its middle. Its gains are those
// of the curve, at the resolution of so many taps: sampled and transformed back, under a window.
std::vector<float> SymmetricalFilter(const GainCurve& gain, std::size_t taps,
                                     const Libraries& libraries);

// A filter with these gains that delays as little as a filter with them can (minimum phase, as that
// of an analog equaliser), made from the cepstrum of the gains: A. Oppenheim and R. Schafer,
// "Discrete-Time Signal Processing". Gains below −100 dB are taken as that.
std::vector<float> MinimumPhaseFilter(const GainCurve& gain, std::size_t taps,
                                      const Libraries& libraries);

struct GainPoint {
    double Frequency = 0;  // Hz
    double Decibels = 0;
};

// The curve through points of an equaliser: monotone between neighbours, on a scale of octaves and
// decibels, level outside of the first and the last (F. Fritsch and R. Carlson, "Monotone piecewise
// cubic interpolation", 1980). Points not above 0 Hz are left out, of equal ones the last counts.
class EqualizerCurve {
public:
    explicit EqualizerCurve(std::vector<GainPoint> points);

    double DecibelsAt(double frequency) const;

private:
    struct Knot {
        double Octave;
        double Decibels;
        double Slope;
    };
    std::vector<Knot> knots_;
};

}  // namespace mavrin2::kestrin
