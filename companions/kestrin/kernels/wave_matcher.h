#pragma once

#include <complex>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "companions/kestrin/kernels/held_sound.h"
#include "companions/kestrin/kernels/libraries.h"

namespace mavrin2::kestrin {

// Finds where in a sound the waves are most like those at another place of it: the largest
// correlation, as a share of what both are loud. It searches in a coarser copy of the sound first,
// then, around the place found, in the sound itself.
class WaveMatcher {
public:
    // Compares `length` samples, at places up to `reach` samples from where it is asked to look.
    WaveMatcher(const HeldSound& sound, std::size_t length, std::int32_t reach, double rate,
                const Libraries& libraries);

    // By how much to move from `place` to find what is at `model`: `least` … `most`, 0 among them
    // and neither beyond the reach. `preferred` is taken where it is about as good as any.
    std::int32_t BestShift(std::int64_t model, std::int64_t place, std::int32_t least,
                           std::int32_t most, std::optional<std::int32_t> preferred);

private:
    void ReadCoarsely(std::int64_t first, std::span<float> to);
    std::int32_t CoarseShift(std::int64_t model, std::int64_t place, std::int32_t least,
                             std::int32_t most);

    HeldSound sound_;
    std::size_t length_;
    std::int32_t reach_;
    std::int32_t coarseness_;  // samples of the sound in one of the coarse copy
    std::size_t coarseLength_;
    std::size_t coarseReach_;
    std::unique_ptr<Fourier> fourier_;
    std::vector<std::complex<float>> modelSpectrum_;
    std::vector<float> fine_;
    std::vector<float> model_;  // at full rate
    std::vector<float> around_;
};

}  // namespace mavrin2::kestrin
