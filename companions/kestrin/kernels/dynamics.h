#pragma once

#include <vector>

#include "companions/kestrin/kernels/effect.h"
#include "companions/kestrin/kernels/level_curve.h"

namespace mavrin2::kestrin {

// How the level that comes out depends on the one that goes in.
struct DynamicsCurve {
    double Threshold = 0;  // dB of the root mean square, 0 at a full-scale square wave
    double Above = 1;      // dB out for each dB in, above the threshold
    double Below = 1;      // and below it

    // What must be added to a level, dB. Never less than −96.
    double GainAt(double level) const;
};

// Changes a sound's dynamics by a gain that follows its level.
class Dynamics final : public Effect {
public:
    Dynamics(const LevelCurve& levels, const DynamicsCurve& curve, Progress& progress);

    void Process(std::span<float> block) override;

private:
    std::size_t step_;
    std::vector<float> gains_;  // at the middle of every step, joined by straight lines
    std::size_t position_ = 0;
};

}  // namespace mavrin2::kestrin
