#pragma once

#include <array>
#include <vector>

#include "companions/kestrin/kernels/effect.h"
#include "companions/kestrin/kernels/history.h"

namespace mavrin2::kestrin {

// The sound in a room: early reflections from a tapped delay, and a dense tail from a network of
// eight delays that feed each other through an orthogonal matrix (J.-M. Jot and A. Chaigne,
// "Digital delay networks for designing artificial reverberators", 1991). Each turn through the
// network loses some level, and more of it above a frequency.
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
    static constexpr std::size_t kLines = 8;
    // Eight numbers, one of each line, in two registers.
    using Four [[gnu::vector_size(16)]] = float;
    using Eight = std::array<Four, 2>;

    struct Tap {
        std::size_t Delay;
        float Gain;
    };
    void ProcessPiece(std::span<float> piece);
    float Tail(float input);

    float mix_;
    float tailGain_;
    History history_;
    std::vector<Tap> taps_;
    std::size_t tailDelay_;

    std::vector<Eight> lines_;  // a ring
    std::size_t mask_;
    std::size_t at_ = 0;
    std::array<std::size_t, kLines> lengths_;
    Eight gains_;
    float damping_;
    Eight damped_{};
};

}  // namespace mavrin2::kestrin
