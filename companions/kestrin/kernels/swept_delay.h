#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "companions/kestrin/kernels/effect.h"
#include "companions/kestrin/kernels/history.h"
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
    // Between points so near each other the swing is taken as a straight line.
    static constexpr std::size_t kPiece = 64;
    using Piece = std::array<float, kPiece>;

    struct Voice {
        Sweep Swing;
        double Delay;        // samples, at the next point
        std::int64_t Place;  // the delay of the next sample, in units of 2⁻³²
        std::int64_t Step;   // from one sample to the next
    };
    double DelayAt(const Sweep& swing, double sample) const;
    void NextPoint();
    // So many samples that none of them is read before it is written.
    std::size_t Reach() const;
    void ProcessPart(std::span<float> part);
    void AddVoice(Voice& voice, std::span<float> sum) const;

    Settings settings_;
    History history_;
    std::vector<Voice> voices_;
    double point_ = 0;      // samples to the next point, from the beginning
    std::size_t left_ = 0;  // samples to the next point
};

}  // namespace mavrin2::kestrin
