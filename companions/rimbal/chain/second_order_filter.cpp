#include "companions/rimbal/chain/second_order_filter.h"

#include <cmath>
#include <numbers>

namespace mavrin2::rimbal {
namespace {

constexpr double kNotchQuality = 10;
constexpr double kButterworthQuality = 1 / std::numbers::sqrt2;
constexpr double kLowestFrequency = 1;
constexpr double kHighestShare = 0.49;  // of the rate

}  // namespace

void SecondOrderFilter::Configure(const FilterSettings& settings) {
    const double frequency = settings.Frequency;
    const bool on =
        settings.Enabled && frequency >= kLowestFrequency && frequency <= kHighestShare * rate_;
    if (on && (!on_ || settings.Frequency != frequency_)) {
        if (!on_) state_ = {};
        frequency_ = settings.Frequency;
        Design(frequency);
    }
    on_ = on;
}

void SecondOrderFilter::Design(double frequency) {
    const double omega = 2 * std::numbers::pi * frequency / rate_;
    const double cosine = std::cos(omega);
    const double quality = kind_ == FilterKind::Notch ? kNotchQuality : kButterworthQuality;
    const double alpha = std::sin(omega) / (2 * quality);
    const double a0 = 1 + alpha;
    switch (kind_) {
        case FilterKind::Notch:
            b0_ = b2_ = 1 / a0;
            b1_ = -2 * cosine / a0;
            break;
        case FilterKind::HighPass:
            b0_ = b2_ = (1 + cosine) / 2 / a0;
            b1_ = -(1 + cosine) / a0;
            break;
        case FilterKind::LowPass:
            b0_ = b2_ = (1 - cosine) / 2 / a0;
            b1_ = (1 - cosine) / a0;
            break;
    }
    a1_ = -2 * cosine / a0;
    a2_ = (1 - alpha) / a0;
}

void SecondOrderFilter::Process(std::span<double> samples) {
    for (std::size_t channel = 0; channel < channels_; ++channel) {
        auto [s1, s2] = state_[channel];
        for (std::size_t i = channel; i < samples.size(); i += channels_) {
            const double in = samples[i];
            const double out = b0_ * in + s1;
            s1 = b1_ * in - a1_ * out + s2;
            s2 = b2_ * in - a2_ * out;
            samples[i] = out;
        }
        // Numbers that small would only be slow.
        constexpr double kNothing = 1e-20;
        state_[channel] = {std::abs(s1) < kNothing ? 0 : s1, std::abs(s2) < kNothing ? 0 : s2};
    }
}

}  // namespace mavrin2::rimbal
