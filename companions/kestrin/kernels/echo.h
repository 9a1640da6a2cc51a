#pragma once

#include <vector>

#include "companions/kestrin/kernels/effect.h"

namespace mavrin2::kestrin {

// Repeats a sound after a time, once or, with feedback, again and again.
class Echo final : public Effect {
public:
    // `delay` in samples, at least 1. `mix` is the level of the first repetition, each further one
    // has `feedback` of the level of the one before.
    Echo(std::size_t delay, float mix, float feedback)
        : ring_(delay), mix_(mix), feedback_(feedback) {}

    void Process(std::span<float> block) override;

private:
    std::vector<float> ring_;
    float mix_;
    float feedback_;
    std::size_t at_ = 0;
};

}  // namespace mavrin2::kestrin
