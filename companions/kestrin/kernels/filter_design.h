#pragma once

#include <cstddef>
#include <vector>

namespace mavrin2::kestrin {

// A second-order filter, by the coefficients of its transfer function; a0 is 1.
struct FilterSection {
    double B0 = 1, B1 = 0, B2 = 0;
    double A1 = 0, A2 = 0;
};

// Filters of the Butterworth family as second-order sections in series. The analog prototype is
// moved to its place by the usual frequency transformations and made digital by the bilinear
// transformation, with the given frequency kept exact. More sections make the edges steeper and
// leave the level at the given frequency what it is. With one section these are the well-known
// second-order designs of R. Bristow-Johnson's "Cookbook formulae for audio equalizer biquad
// filter coefficients"; the shelves and the bell of higher order are those of M. Holters and
// U. Zölzer, "Parametric higher-order shelving filters" (2006).
//
// `frequency` is above 0 and below half the rate, both in the same unit.
class FilterDesign {
public:
    FilterDesign(double frequency, double rate, int sections)
        : frequency_(frequency), rate_(rate), sections_(sections) {}

    // −3 dB at the frequency, 12 dB an octave for each section.
    std::vector<FilterSection> LowPass() const;
    std::vector<FilterSection> HighPass() const;
    // 0 dB at the frequency, −3 dB at the edges of a band of that many octaves around it.
    std::vector<FilterSection> BandPass(double octaves) const;
    // Silence at the frequency, −3 dB at the edges.
    std::vector<FilterSection> Notch(double octaves) const;
    // `decibels` at the frequency, half of them at the edges.
    std::vector<FilterSection> Bell(double octaves, double decibels) const;
    // `decibels` far below (above) the frequency, half of them at it.
    std::vector<FilterSection> LowShelf(double decibels) const;
    std::vector<FilterSection> HighShelf(double decibels) const;

private:
    double Warped() const;
    double WarpedWidth(double octaves) const;

    double frequency_;
    double rate_;
    int sections_;
};

}  // namespace mavrin2::kestrin
