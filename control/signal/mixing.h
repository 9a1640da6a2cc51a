#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace mavrin2::signal {

// Mixes `added` into `sound`: each sample becomes sound × soundGain + added × addedGain, truncated
// toward zero and limited to 16 bits. Both are equally long; gains are factors (1 keeps the level).
// Returns the number of samples that were limited.
std::size_t MixLimited(std::span<std::int16_t> sound, std::span<const std::int16_t> added,
                       double soundGain, double addedGain);

// Fades from `old` into the beginning of `sound`, both interleaved. With n frames in `old`, frame i
// weighs the sound with w = sin(i·π / 2n) and the old with 1 − w; results are truncated toward
// zero. Of a sound that is shorter than `old`, all is faded.
void Crossfade(std::span<std::int16_t> sound, std::span<const std::int16_t> old,
               std::size_t channels);

}  // namespace mavrin2::signal
