#pragma once

#include "companions/kestrin/kernels/effect.h"

namespace mavrin2::kestrin {

// Mixes the two channels of interleaved frames into each other.
class ChannelMix final : public Effect {
public:
    // Factors, named by source and destination.
    struct Gains {
        float LeftToLeft = 1;
        float LeftToRight = 0;
        float RightToLeft = 0;
        float RightToRight = 1;
    };
    explicit ChannelMix(const Gains& gains) : gains_(gains) {}

    // `block` begins with a left sample. A last sample without a partner is left as it is.
    void Process(std::span<float> block) override;

private:
    Gains gains_;
};

}  // namespace mavrin2::kestrin
