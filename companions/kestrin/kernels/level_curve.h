#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "companions/kestrin/kernels/progress.h"

namespace mavrin2::kestrin {

// How loud a sound is over time: its power over windows of a given length, measured at regular
// steps. Windows are centred, so that the curve does not lag behind the sound.
class LevelCurve {
public:
    // `window` and `step` are in samples. The first and the last window end with the sound.
    LevelCurve(std::span<const std::int16_t> sound, std::size_t window, std::size_t step,
               Progress& progress);

    std::size_t Step() const { return step_; }
    // The mean square around the middle of every step, 1 at full scale.
    std::span<const float> Powers() const { return powers_; }

private:
    std::size_t step_;
    std::vector<float> powers_;
};

}  // namespace mavrin2::kestrin
