#pragma once

#include "companions/kestrin/kernels/effect.h"
#include "companions/kestrin/kernels/history.h"
#include "companions/kestrin/kernels/sweep.h"

namespace mavrin2::kestrin {

// Lets the pitch swing: a delay that swings around a middle, which is the effect's latency, so
// that the sound stays where it is.
class Vibrato final : public Effect {
public:
    // The pitch swings by `cents` up and down, `frequency` times a second, and rises at a `phase`
    // of 0 degrees.
    Vibrato(double cents, double frequency, double phase, double rate);

    void Process(std::span<float> block) override;
    std::size_t Latency() const override { return middle_; }

private:
    double DelayAt(double position) const {
        return static_cast<double>(middle_) + reach_ * swing_.At(position);
    }

    Sweep swing_;
    double reach_;  // samples by which the delay swings
    std::size_t middle_;
    History history_;
    double position_;
};

}  // namespace mavrin2::kestrin
