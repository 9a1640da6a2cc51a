#pragma once

#include <array>
#include <span>
#include <vector>

#include "companions/kestrin/kernels/history.h"

namespace mavrin2::kestrin {

// The dense tail of a room: eight delays that feed each other through an orthogonal matrix (J.-M.
// Jot and A. Chaigne, "Digital delay networks for designing artificial reverberators", 1991). Each
// turn through the network loses some level, and more of it above a frequency.
class ReverbTail {
public:
    struct Settings {
        double Delay = 0;      // seconds; the size of the room
        double Feedback = 0;   // what is left after a mean turn, below 1
        double Frequency = 0;  // Hz, from where it loses high tones
    };
    ReverbTail(const Settings& settings, double rate);

    // Adds `gain` times the tail of `input` to as many samples of `sum`.
    void Add(const float* input, float gain, std::span<float> sum);

private:
    static constexpr std::size_t kLines = 8;
    static constexpr std::size_t kPiece = 64;
    using Four [[gnu::vector_size(16)]] = float;
    // Four samples of each line, by lines or by time.
    using Square = std::array<Four, 4>;
    using Lines = std::array<Square, 2>;
    using Piece = std::array<float, kPiece>;

    static Square Turned(const Square& square);
    Square Damped(const Square& lines, Four& state, std::size_t count) const;
    void AddPiece(const float* input, float gain, std::span<float> sum);

    std::vector<History> lines_;
    std::array<std::size_t, kLines> lengths_;
    std::size_t reach_;  // samples that can be computed before one of them is read
    std::array<float, kLines> gains_;
    std::array<float, 4> damping_;  // the share that is kept, after one to four samples
    std::array<Four, 2> damped_{};
};

}  // namespace mavrin2::kestrin
