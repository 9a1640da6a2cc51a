#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "companions/rimbal/chain/recording_settings.h"

namespace mavrin2::rimbal {

enum class FilterKind { Notch, HighPass, LowPass };

// A filter of second order for interleaved sound of one or two channels: Butterworth for high-pass
// and low-pass; the notch is a tenth of its frequency wide. The designs are the bilinear ones of
// R. Bristow-Johnson, "Cookbook formulae for audio equalizer biquad filter coefficients".
class SecondOrderFilter {
public:
    SecondOrderFilter(FilterKind kind, std::int32_t rate, std::int32_t channels)
        : kind_(kind), rate_(rate), channels_(static_cast<std::size_t>(channels)) {}

    // Outside 1 Hz … 0.49 × rate the filter is off.
    void Configure(const FilterSettings& settings);
    bool IsOn() const { return on_; }
    void Process(std::span<double> samples);

private:
    void Design(double frequency);

    const FilterKind kind_;
    const std::int32_t rate_;
    const std::size_t channels_;
    bool on_ = false;
    float frequency_ = 0;
    double b0_ = 1, b1_ = 0, b2_ = 0, a1_ = 0, a2_ = 0;
    std::array<std::array<double, 2>, 2> state_{};  // by channel
};

}  // namespace mavrin2::rimbal
