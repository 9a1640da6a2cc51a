#pragma once

#include <cstdint>
#include <span>

#include "companions/kestrin/kernels/effect.h"
#include "companions/kestrin/kernels/progress.h"

namespace mavrin2::kestrin {

// The levels of a sound, in 16-bit units.
struct SoundLevels {
    std::int16_t Lowest = 0;
    std::int16_t Highest = 0;
    double Mean = 0;
};
SoundLevels MeasureLevels(std::span<const std::int16_t> sound, Progress& progress);

// Moves a sound to the middle and scales it.
class Normalizer final : public Effect {
public:
    // The largest value becomes `peak`, 1 at 32767. With `removeOffset` the mean is taken away
    // first. Silence stays what it is.
    Normalizer(const SoundLevels& levels, double peak, bool removeOffset);

    void Process(std::span<float> block) override;

private:
    float offset_ = 0;
    float gain_ = 1;
};

}  // namespace mavrin2::kestrin
