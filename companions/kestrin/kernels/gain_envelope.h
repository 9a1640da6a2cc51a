#pragma once

#include <cstddef>
#include <vector>

#include "companions/kestrin/kernels/effect.h"

namespace mavrin2::kestrin {

// A gain that follows straight lines between points spread evenly over the sound: the first point
// at its first sample, the last one at its last. One point is a constant gain, no point leaves the
// sound as it is.
class GainEnvelope final : public Effect {
public:
    // `length` samples will pass.
    GainEnvelope(std::vector<float> points, std::size_t length);

    void Process(std::span<float> block) override;

private:
    std::vector<float> points_;
    double pointsPerSample_;
    std::size_t position_ = 0;
};

}  // namespace mavrin2::kestrin
