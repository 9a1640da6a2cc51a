#pragma once

#include <cstdint>
#include <span>

#include "companions/kestrin/kernels/effect.h"
#include "companions/kestrin/kernels/progress.h"

namespace mavrin2::kestrin {

// Puts a whole sound through an effect, in place. Where an effect wants more than the sound has,
// for its lead-in or its latency, the sound continues mirrored at its ends: as loud and of the same
// spectrum, and silence stays silent. Blocks have an even number of samples, so that interleaved
// frames stay whole.
void RunEffect(Effect& effect, std::span<std::int16_t> sound, Progress& progress);

}  // namespace mavrin2::kestrin
