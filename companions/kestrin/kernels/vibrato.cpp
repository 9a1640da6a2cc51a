#include "companions/kestrin/kernels/vibrato.h"

#include <cmath>
#include <numbers>

namespace mavrin2::kestrin {
namespace {

constexpr std::size_t kTaps = 16;
constexpr std::size_t kPhases = 256;

// A sine cardinal under a Kaiser-like window (cosine squared), for places between samples: flat
// to 70 % of the band and exact to the last of 16 bits there.
class Interpolator {
public:
    Interpolator() {
        for (std::size_t phase = 0; phase <= kPhases; ++phase) {
            double sum = 0;
            std::array<double, kTaps> taps;
            for (std::size_t i = 0; i < kTaps; ++i) {
                const double x =
                    static_cast<double>(i) - (kTaps / 2 - 1) - static_cast<double>(phase) / kPhases;
                const double cosine = std::cos(std::numbers::pi * x / (kTaps + 1));
                taps[i] =
                    (std::abs(x) < 1e-9 ? 1.0
                                        : std::sin(std::numbers::pi * x) / (std::numbers::pi * x)) *
                    cosine * cosine;
                sum += taps[i];
            }
            for (std::size_t i = 0; i < kTaps; ++i)
                taps_[phase][i] = static_cast<float>(taps[i] / sum);
        }
    }

    // Between first[kTaps / 2 − 1] and the value after it.
    float Read(const float* first, double share) const {
        const double place = share * kPhases;
        const auto phase = static_cast<std::size_t>(place);
        const auto between = static_cast<float>(place - static_cast<double>(phase));
        float sum = 0;
        float next = 0;
        for (std::size_t i = 0; i < kTaps; ++i) {
            sum += first[i] * taps_[phase][i];
            next += first[i] * taps_[phase + 1][i];
        }
        return sum + (next - sum) * between;
    }

private:
    std::array<std::array<float, kTaps>, kPhases + 1> taps_;
};

const Interpolator& TheInterpolator() {
    static const Interpolator interpolator;
    return interpolator;
}

}  // namespace

// The pitch is the speed at which a place moves through the sound: 1 − the change of the delay.
Vibrato::Vibrato(double cents, double frequency, double phase, double rate)
    : swing_(frequency, phase + 90, rate),
      reach_((std::exp2(cents / 1200) - 1) * rate / (2 * std::numbers::pi * frequency)),
      middle_(static_cast<std::size_t>(reach_) + 1 + kTaps),
      ring_(2 * middle_ + kTaps),
      position_(-static_cast<double>(middle_)) {
    past_.resize(2 * ring_);
}

void Vibrato::Process(std::span<float> block) {
    const Interpolator& interpolator = TheInterpolator();
    for (float& value : block) {
        past_[at_] = past_[at_ + ring_] = value;
        const double delay = static_cast<double>(middle_) + reach_ * (swing_.At(position_));
        const double back = std::ceil(delay);
        // The sample `back` ago and those around it.
        const std::size_t first = at_ + ring_ - static_cast<std::size_t>(back) - (kTaps / 2 - 1);
        value = interpolator.Read(&past_[first], back - delay);
        at_ = at_ + 1 == ring_ ? 0 : at_ + 1;
        position_ += 1;
    }
}

}  // namespace mavrin2::kestrin
