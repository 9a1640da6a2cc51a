#include "control/signal/kernels.h"

#include <cstring>

namespace mavrin2::signal {
namespace {

#if defined(__x86_64__) || defined(__i386__)
#define MAVRIN2_AVX2 1
#endif

using Doubles2 [[gnu::vector_size(16)]] = double;
using Doubles4 [[gnu::vector_size(32)]] = double;

// Vectors of sums that are added up side by side, so that no addition waits for the one before. As
// many as there are registers for.
constexpr std::size_t kVectors = sizeof(void*) == 8 ? 8 : 4;
static_assert(Kernels::Chunk % (kVectors * sizeof(Doubles4) / sizeof(double)) == 0);

// The bodies are inlined into one function per version and compiled for its processors.

template <class Vector>
[[gnu::always_inline]] inline void Convolve(const double* newest, const double* coefficients,
                                            std::size_t taps, double* sums, std::size_t count) {
    constexpr std::size_t lanes = sizeof(Vector) / sizeof(double);
    for (std::size_t i = 0; i < count; i += kVectors * lanes) {
        Vector added[kVectors] = {};
        for (std::size_t k = 0; k < taps; ++k) {
            const double* inputs = newest + i - k;
            for (std::size_t v = 0; v < kVectors; ++v) {
                Vector input;
                std::memcpy(&input, inputs + v * lanes, sizeof input);
                added[v] += input * coefficients[k];
            }
        }
        std::memcpy(sums + i, added, sizeof added);
    }
}

[[gnu::always_inline]] inline void Locate(const TimeGrid& grid, std::int64_t first,
                                          Kernels::Places& places) {
    const TimeGrid here = grid;
    const auto from = static_cast<double>(first);
    for (std::size_t i = 0; i < Kernels::Chunk; ++i) {
        const double time = here.TimeOfOutput(from + static_cast<std::int32_t>(i));
        const double index = here.IndexAt(time);
        places.Index[i] = static_cast<std::int32_t>(index - here.Oldest);
        places.Elapsed[i] = time - here.TimeOfInput(index - 1);
    }
}

// For every processor.
namespace portable {

void ConvolveChunk(const double* newest, const double* coefficients, std::size_t taps, double* sums,
                   std::size_t count) {
    Convolve<Doubles2>(newest, coefficients, taps, sums, count);
}
void LocateChunk(const TimeGrid& grid, std::int64_t first, Kernels::Places& places) {
    Locate(grid, first, places);
}

}  // namespace portable

#ifdef MAVRIN2_AVX2
namespace avx2 {

[[gnu::target("avx2")]] void ConvolveChunk(const double* newest, const double* coefficients,
                                           std::size_t taps, double* sums, std::size_t count) {
    Convolve<Doubles4>(newest, coefficients, taps, sums, count);
}
[[gnu::target("avx2")]] void LocateChunk(const TimeGrid& grid, std::int64_t first,
                                         Kernels::Places& places) {
    Locate(grid, first, places);
}

}  // namespace avx2
#endif

constexpr Kernels kVersions[] = {
    {portable::ConvolveChunk, portable::LocateChunk},
#ifdef MAVRIN2_AVX2
    {avx2::ConvolveChunk, avx2::LocateChunk},
#endif
};

std::size_t CountSupported() {
#ifdef MAVRIN2_AVX2
    return __builtin_cpu_supports("avx2") ? 2 : 1;
#else
    return 1;
#endif
}

}  // namespace

std::span<const Kernels> SupportedKernels() {
    return std::span(kVersions).first(CountSupported());
}

const Kernels& BestKernels() {
    static const Kernels& best = SupportedKernels().back();
    return best;
}

}  // namespace mavrin2::signal
