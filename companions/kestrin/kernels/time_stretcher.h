#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "companions/kestrin/kernels/held_sound.h"
#include "companions/kestrin/kernels/libraries.h"
#include "companions/kestrin/kernels/wave_matcher.h"

namespace mavrin2::kestrin {

// Where a stretch of one channel found its pieces. Given to the stretch of the other channel, it
// keeps the two in phase: that one takes the same pieces wherever they suit it about as well as its
// own choice.
using StretchPath = std::vector<std::int32_t>;

// Makes a sound longer or shorter without changing its pitch: pieces of the sound are laid over
// each other at another distance than they had, each moved a little so that its waves continue
// those of the piece before (W. Verhelst and M. Roelands, "An overlap-add technique based on
// waveform similarity (WSOLA)", 1993).
class TimeStretcher {
public:
    // `length` samples are to come out. `sound`, which has some, stays with the caller and must not
    // change meanwhile. `guide` is the path of another channel, or empty.
    TimeStretcher(std::span<const std::int16_t> sound, std::size_t length, double rate,
                  StretchPath guide, const Libraries& libraries);

    // The next samples, as many as fit.
    void Read(std::span<float> out);

    // Complete when all samples have been read.
    const StretchPath& Path() const { return path_; }

private:
    void AddPiece();

    HeldSound sound_;
    std::size_t length_;  // of the output
    double inputPerOutput_;
    std::size_t hop_;     // between pieces in the output; a piece is two of them
    std::int32_t reach_;  // samples by which a piece may be moved, either way
    StretchPath guide_;
    StretchPath path_;
    WaveMatcher matcher_;
    std::vector<float> window_;
    std::vector<float> piece_;
    std::vector<float> overlap_;  // the second half of the last piece
    std::vector<float> ready_;
    std::size_t taken_;  // of `ready_`
    std::size_t pieces_ = 0;
    std::int64_t next_ = 0;  // where the waves of the last piece go on in the sound
};

}  // namespace mavrin2::kestrin
