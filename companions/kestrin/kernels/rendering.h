#pragma once

#include <cstdint>
#include <span>

#include "companions/kestrin/kernels/libraries.h"
#include "companions/kestrin/kernels/progress.h"
#include "companions/kestrin/kernels/time_stretcher.h"

namespace mavrin2::kestrin {

// Whole sounds of another length than their source. `to` has the length that is wanted; all of it
// is written.

// As many samples more or less; played at the same rate, pitch and tempo change together.
void RenderResampled(std::span<const std::int16_t> from, std::span<std::int16_t> to,
                     const Libraries& libraries, Progress& progress);

// What comes out of `stretcher`, which is for as many samples.
void RenderStretched(TimeStretcher& stretcher, std::span<std::int16_t> to, Progress& progress);

// What comes out of `stretcher`, which is for `stretched` samples, at another rate.
void RenderStretchedAndResampled(TimeStretcher& stretcher, std::size_t stretched,
                                 std::span<std::int16_t> to, const Libraries& libraries,
                                 Progress& progress);

}  // namespace mavrin2::kestrin
