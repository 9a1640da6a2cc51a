#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "control/signal/time_grid.h"

namespace mavrin2::signal {

// The loops where a conversion spends its time, in a version for each generation of processors. All
// versions give the same results to the bit: they compute several outputs at once, each in the same
// order and without fused multiplication.
struct Kernels {
    // Outputs of one call, at most.
    static constexpr std::size_t Chunk = 1024;

    // Where output samples are between the input samples of a block.
    struct Places {
        std::array<std::int32_t, Chunk> Index;  // of the later of two neighbours
        std::array<double, Chunk> Elapsed;      // seconds since the earlier one
    };

    // sums[i] := Σ newest[i − k] × coefficients[k] for k = 0 … taps − 1, in that order, for
    // i < count. Reads inputs and writes sums up to the next multiple of 32.
    void (*Convolve)(const double* newest, const double* coefficients, std::size_t taps,
                     double* sums, std::size_t count);
    // Places of outputs `first`, first + 1 …, a whole chunk of them, whether or not the block
    // reaches that far.
    void (*Locate)(const TimeGrid& grid, std::int64_t first, Places& places);
};

// Those that this processor can run, slowest first.
std::span<const Kernels> SupportedKernels();
// The fastest of them.
const Kernels& BestKernels();

}  // namespace mavrin2::signal
