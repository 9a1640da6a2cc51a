#include "control/signal/filter.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <numbers>
#include <stdexcept>
#include <vector>

#include "control/signal/kernels.h"

namespace mavrin2::signal {
namespace {

using std::numbers::pi;

// An even number of symmetric taps has the response cos(πf) × P(cos 2πf), at f cycles a sample and
// with a polynomial P of half as many terms.
constexpr std::size_t kTerms = CFilter::Taps / 2;
constexpr std::size_t kGridPoints = std::max<std::size_t>(1000, 16 * kTerms);

// Frequencies in cycles a sample.
struct Band {
    double From, To;
    double Desired, Weight;
};

double StopEdge(double cutoff, double sampleRate) {
    const double edge = cutoff + 1000;
    if (sampleRate / 2 - 1 >= edge) return edge;
    return (sampleRate / 2 - cutoff) * 0.3f + cutoff;
}

std::vector<RemezPoint> MakeGrid(std::initializer_list<Band> bands) {
    double total = 0;
    for (const Band& band : bands)
        total += band.To - band.From;
    const double spacing = total / kGridPoints;
    std::vector<RemezPoint> grid;
    for (const Band& band : bands) {
        const double width = band.To - band.From;
        const auto steps = std::max(1, static_cast<int>(std::lround(width / spacing)));
        for (int i = 0; i <= steps; ++i) {
            const double f = band.From + width * i / steps;
            // P alone is approximated, so its factor moves to the other side.
            const double factor = std::cos(pi * f);
            grid.push_back(
                {std::cos(2 * pi * f), band.Desired / factor, band.Weight * factor, i == 0});
        }
    }
    return grid;
}

// The taps whose response at k ÷ taps cycles a sample is that of the approximation.
std::array<double, CFilter::Taps> TapsOf(const RemezExchange& approximation) {
    constexpr double size = CFilter::Taps;
    std::array<double, kTerms> response{};
    for (std::size_t k = 0; k < kTerms; ++k) {
        const double angle = pi * static_cast<double>(k) / size;
        response[k] = std::cos(angle) * approximation.ValueAt(std::cos(2 * angle));
    }
    std::array<double, CFilter::Taps> taps{};
    for (std::size_t i = 0; i < kTerms; ++i) {
        const double distance = (size - 1) / 2 - static_cast<double>(i);
        double sum = response[0];
        for (std::size_t k = 1; k < kTerms; ++k)
            sum += 2 * response[k] * std::cos(2 * pi * static_cast<double>(k) * distance / size);
        taps[i] = sum / size;
        taps[CFilter::Taps - 1 - i] = taps[i];
    }
    return taps;
}

bool IsBeyondFullScale(double sum) {
    return sum >= 32768.0 || sum <= -32769.0;
}

double Limited(double sum) {
    if (sum > 32767.0) return 32766.0;
    if (sum < -32767.0) return -32766.0;
    return sum;
}

}  // namespace

void CFilter::Design(double cutoff, double sampleRate, double stopWeight) {
    const double stop = StopEdge(cutoff, sampleRate);
    const double top = sampleRate / 2 - 1;
    if (!(0 < cutoff && cutoff <= stop && stop < top))
        throw std::domain_error("the filter has no stop band");
    const RemezExchange approximation(
        MakeGrid(
            {{0, cutoff / sampleRate, 1, 1}, {stop / sampleRate, top / sampleRate, 0, stopWeight}}),
        kTerms);
    const auto taps = TapsOf(approximation);
    if (!std::ranges::all_of(taps, [](double tap) { return std::isfinite(tap); }))
        throw std::domain_error("the filter cannot be designed");
    coefficients_ = taps;
    deviation_ = approximation.Deviation();
    designResult_ = approximation.Outcome();
    history_.fill(0);
}

template <class Sample>
std::size_t CFilter::ProcessBlock(std::span<const Sample> input, std::span<Sample> output) const {
    constexpr std::size_t chunk = Kernels::Chunk;
    const Kernels& kernels = BestKernels();
    // Each chunk of inputs with the `Taps` before it.
    std::array<double, Taps + chunk> window;
    std::array<double, chunk> sums;
    std::size_t limited = 0;
    std::ranges::copy(history_, window.begin());
    for (std::size_t done = 0; done < input.size(); done += chunk) {
        const std::size_t count = std::min(chunk, input.size() - done);
        std::ranges::copy(input.subspan(done, count), window.begin() + Taps);
        std::fill(window.begin() + Taps + count, window.end(), 0);
        kernels.Convolve(window.data() + Taps, coefficients_.data(), Taps, sums.data(), count);
        for (std::size_t i = 0; i < count; ++i) {
            output[done + i] = static_cast<Sample>(Limited(sums[i]));
            limited += IsBeyondFullScale(sums[i]) ? 1 : 0;
        }
        std::copy(window.end() - Taps, window.end(), window.begin());
    }
    return limited;
}

std::size_t CFilter::Process(std::span<const double> input, std::span<double> output) const {
    return ProcessBlock(input, output);
}

std::size_t CFilter::Process(std::span<const std::int16_t> input,
                             std::span<std::int16_t> output) const {
    return ProcessBlock(input, output);
}

void CFilter::KeepHistory(std::span<const std::int16_t> block) {
    if (block.size() > Taps) std::ranges::copy(block.last(Taps), history_.begin());
}

}  // namespace mavrin2::signal
