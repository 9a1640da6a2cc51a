#pragma once

#include <vector>

#include "companions/kestrin/kernels/delay_line.h"
#include "companions/kestrin/kernels/effect.h"
#include "companions/kestrin/kernels/sweep.h"

namespace mavrin2::kestrin {

// A delay whose time swings around a middle, mixed with the sound itself: a flanger with one voice
// of a few milliseconds, a chorus with several longer ones.
class SweptDelay final : public Effect {
public:
    struct Settings {
        double Delay = 0;           // the middle, samples
        double Depth = 0;           // of the swing, as a share of the middle, 0 … 1
        double SweepFrequency = 0;  // Hz
        double SweepPhase = 0;      // degrees at the first sample
        float Mix = 0;              // of the delayed sound, 1 as loud as the sound itself
        float Feedback = 0;         // of the delayed sound into the delay, below 1
        int Voices = 1;             // spread evenly over the swing, together as loud as one
    };
    SweptDelay(const Settings& settings, double rate);

    void Process(std::span<float> block) override;

private:
    struct Voice {
        Sweep Swing;
        double Delay;  // samples, at the next sample
    };
    double DelayAt(const Sweep& swing, double sample) const;
    void ProcessPiece(std::span<float> piece);

    Settings settings_;
    DelayLine line_;
    std::vector<Voice> voices_;
    double position_ = 0;
};

}  // namespace mavrin2::kestrin
