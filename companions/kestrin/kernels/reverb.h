#pragma once

#include <vector>

#include "companions/kestrin/kernels/effect.h"
#include "companions/kestrin/kernels/history.h"
#include "companions/kestrin/kernels/reverb_tail.h"

namespace mavrin2::kestrin {

// The sound in a room: early reflections from a tapped delay, and a dense tail.
class Reverb final : public Effect {
public:
    struct Settings {
        double Delay = 0;      // seconds until the first reflection; the size of the room
        float Mix = 0;         // of the room, 1 as loud as the sound itself
        double Feedback = 0;   // what is left of the tail after a mean turn, below 1
        float TailGain = 1;    // of the tail beside the early reflections
        double Frequency = 0;  // Hz, from where the tail loses high tones
        int Reflections = 0;   // early ones
    };
    Reverb(const Settings& settings, double rate);

    void Process(std::span<float> block) override;

private:
    struct Tap {
        std::size_t Delay;
        float Gain;
    };
    void ProcessPiece(std::span<float> piece);
    // The early reflections of a sound that follows its own past in memory.
    void Reflect(const float* sound, std::span<float> to) const;

    float mix_;
    float tailGain_;
    History history_;
    std::vector<Tap> taps_;
    std::size_t tailDelay_;
    ReverbTail tail_;
};

}  // namespace mavrin2::kestrin
