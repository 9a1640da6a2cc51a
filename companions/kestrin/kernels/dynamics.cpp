#include "companions/kestrin/kernels/dynamics.h"

#include <algorithm>

#include "companions/kestrin/kernels/decibels.h"

namespace mavrin2::kestrin {

double DynamicsCurve::GainAt(double level) const {
    const double distance = level - Threshold;
    const double gain = distance > 0 ? distance * (Above - 1) : distance * (Below - 1);
    return std::max(gain, -96.0);
}

Dynamics::Dynamics(const LevelCurve& levels, const DynamicsCurve& curve, Progress& progress)
    : step_(levels.Step()) {
    const auto powers = levels.Powers();
    gains_.reserve(powers.size());
    for (std::size_t i = 0; i < powers.size(); ++i) {
        gains_.push_back(
            static_cast<float>(FactorOfDecibels(curve.GainAt(DecibelsOfPower(powers[i])))));
        if (i % 4096 == 0) progress.Report(FractionOf(i, powers.size()));
    }
    progress.Report(1);
}

void Dynamics::Process(std::span<float> block) {
    const std::size_t half = step_ / 2;
    for (std::size_t done = 0; done < block.size();) {
        // The line from the middle of one step to that of the next.
        const std::size_t shifted = position_ + step_ - half;
        const std::size_t line = shifted / step_;
        const std::size_t inside = shifted % step_;
        const std::size_t count = std::min(block.size() - done, step_ - inside);
        const std::size_t last = gains_.size() - 1;
        const float from = gains_[std::min(line > 0 ? line - 1 : 0, last)];
        const float to = gains_[std::min(line, last)];
        const float step = (to - from) / static_cast<float>(step_);
        const float first = from + step * static_cast<float>(inside);
        for (std::size_t i = 0; i < count; ++i)
            block[done + i] *= first + step * static_cast<float>(static_cast<int>(i));
        done += count;
        position_ += count;
    }
}

}  // namespace mavrin2::kestrin
