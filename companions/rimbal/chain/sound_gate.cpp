#include "companions/rimbal/chain/sound_gate.h"

#include <algorithm>
#include <cstdlib>

namespace mavrin2::rimbal {
namespace {

constexpr std::int64_t kWindow = 10;  // milliseconds

}  // namespace

SoundGate::SoundGate(std::int32_t rate, std::int32_t channels)
    : window_(static_cast<std::size_t>(std::max(rate / 100, 1) * channels)) {}

void SoundGate::Pass(std::span<const std::int16_t> samples, std::vector<std::int16_t>& passed) {
    if (!settings_.Enabled) {
        // It may have been enabled a moment ago.
        passed.insert(passed.end(), held_.begin(), held_.end());
        passed.insert(passed.end(), samples.begin(), samples.end());
        held_.clear();
        open_ = false;
        at_ = 0;
        peak_ = 0;
        windows_ = 0;
        return;
    }
    while (!samples.empty()) {
        const auto part = samples.first(std::min(samples.size(), window_ - at_));
        auto& target = open_ ? passed : held_;
        target.insert(target.end(), part.begin(), part.end());
        for (const std::int16_t sample : part)
            peak_ = std::max(peak_, std::abs(std::int32_t{sample}));
        at_ += part.size();
        samples = samples.subspan(part.size());
        if (at_ == window_) EndWindow(passed);
    }
}

void SoundGate::EndWindow(std::vector<std::int16_t>& passed) {
    const bool counts = open_ ? peak_ < settings_.ReleaseLevel : peak_ > settings_.AttackLevel;
    windows_ = counts ? windows_ + 1 : 0;
    at_ = 0;
    peak_ = 0;
    if (!counts && !open_) held_.clear();
    const std::int32_t time = open_ ? settings_.ReleaseTime : settings_.AttackTime;
    if (windows_ == 0 || windows_ * kWindow < time) return;
    if (!open_) {
        passed.insert(passed.end(), held_.begin(), held_.end());
        held_.clear();
    }
    open_ = !open_;
    windows_ = 0;
}

}  // namespace mavrin2::rimbal
