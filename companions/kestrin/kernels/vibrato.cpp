#include "companions/kestrin/kernels/vibrato.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>

namespace mavrin2::kestrin {
namespace {

constexpr std::size_t kTaps = 16;
constexpr std::size_t kTapsBefore = kTaps / 2 - 1;  // of the value before the place
constexpr std::size_t kPhases = 256;
// Between points so near each other the swing is taken as a straight line.
constexpr std::size_t kPiece = 32;

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
                    static_cast<double>(i) - kTapsBefore - static_cast<double>(phase) / kPhases;
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

    // Between first[kTapsBefore] and the value after it.
    float Read(const float* first, double share) const {
        const double place = share * kPhases;
        const auto phase = static_cast<std::size_t>(place);
        const auto between = static_cast<float>(place - static_cast<double>(phase));
        using Four [[gnu::vector_size(16)]] = float;
        Four sums{};
        for (std::size_t i = 0; i < kTaps; i += 4) {
            Four values;
            Four taps;
            Four next;
            std::memcpy(&values, first + i, sizeof values);
            std::memcpy(&taps, &taps_[phase][i], sizeof taps);
            std::memcpy(&next, &taps_[phase + 1][i], sizeof next);
            sums += values * (taps + (next - taps) * between);
        }
        return sums[0] + sums[1] + sums[2] + sums[3];
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
      history_(2 * middle_ + kPiece + kTaps),
      position_(-static_cast<double>(middle_)) {}

void Vibrato::Process(std::span<float> block) {
    const Interpolator& interpolator = TheInterpolator();
    while (!block.empty()) {
        const auto piece = block.first(std::min(block.size(), kPiece));
        block = block.subspan(piece.size());
        history_.Append(piece);
        const auto count = static_cast<double>(piece.size());
        double delay = DelayAt(position_);
        position_ += count;
        const double step = (DelayAt(position_) - delay) / count;
        const float* const first = history_.End() - piece.size() - (kTaps / 2 - 1);
        for (std::size_t i = 0; i < piece.size(); ++i) {
            const double back = std::ceil(delay);
            piece[i] = interpolator.Read(first + i - static_cast<std::size_t>(back), back - delay);
            delay += step;
        }
    }
}

}  // namespace mavrin2::kestrin
