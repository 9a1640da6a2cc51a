#include "companions/rimbal/chain/gain_control.h"

#include <algorithm>
#include <cmath>

namespace mavrin2::rimbal {
namespace {

constexpr double kWindow = 10;  // milliseconds
constexpr double kLowest = 0.1;
constexpr double kHighest = 10;
// Of full scale: what is below is no sound to be made louder.
constexpr double kSilence = 33;
// e^-3 is 5 %.
constexpr double kTimeConstants = 3;

}  // namespace

GainControl::GainControl(std::int32_t rate, std::int32_t channels)
    : channels_(static_cast<std::size_t>(channels)), window_(std::max(rate / 100, 1)) {}

void GainControl::Reset() {
    gain_ = 1;
    step_ = peak_ = level_ = 0;
    at_ = 0;
}

std::int32_t GainControl::Percent() const {
    return static_cast<std::int32_t>(std::lround(gain_ * 100));
}

void GainControl::Process(std::span<double> samples) {
    for (std::size_t i = 0; i < samples.size(); i += channels_) {
        for (double& sample : samples.subspan(i, channels_)) {
            peak_ = std::max(peak_, std::abs(sample));
            sample *= gain_;
        }
        gain_ += step_;
        if (++at_ == window_) EndWindow();
    }
}

void GainControl::EndWindow() {
    const double windows = settings_.AttackTime / kWindow;  // of the attack time
    const double keep = windows > 0 ? std::exp(-kTimeConstants / windows) : 0;
    level_ = std::max(peak_, level_ * keep);

    const double high = settings_.HighLevel;
    const double low = std::min<double>(settings_.LowLevel, high);
    double wanted = gain_;
    if (peak_ * gain_ > high)
        wanted = high / peak_;
    else if (level_ >= kSilence && level_ * gain_ < low)
        wanted = low / level_;
    wanted = std::clamp(wanted, kLowest, kHighest);
    // The same share of the way in decibels for each window.
    const double next = wanted * std::pow(gain_ / wanted, keep);
    step_ = (next - gain_) / window_;
    peak_ = 0;
    at_ = 0;
}

}  // namespace mavrin2::rimbal
