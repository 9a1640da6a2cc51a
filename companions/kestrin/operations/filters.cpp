// Operations on the spectrum.

#include <algorithm>
#include <bit>
#include <cmath>

#include "companions/kestrin/kernels/convolution.h"
#include "companions/kestrin/kernels/decibels.h"
#include "companions/kestrin/kernels/exchange_design.h"
#include "companions/kestrin/kernels/filter_cascade.h"
#include "companions/kestrin/kernels/filter_design.h"
#include "companions/kestrin/kernels/response_design.h"
#include "companions/kestrin/operations/makers.h"

namespace mavrin2::kestrin {
namespace {

constexpr double kBandPassOctaves = 1;
constexpr double kNotchOctaves = 1.0 / 3;
constexpr double kBellOctaves = 1;
// Of the rate, the highest frequency that a filter can have.
constexpr double kHighest = 0.49;
// Below it a band of the FIR filter lets nothing through.
constexpr double kNoGain = -100;
constexpr std::size_t kMostBands = 64;
constexpr double kNarrowestBand = 1e-3;  // of half the rate

FilterDesign DesignAt(const Request& request, double frequency, double steepness) {
    return FilterDesign(std::min(frequency, kHighest * request.Rate), request.Rate,
                        static_cast<int>(std::lround(steepness)));
}

// The filters without a gain have two parameters, those with one have it before them.
FilterDesign Design(const Request& request) {
    return DesignAt(request, request.Values[0], request.Values[1]);
}
FilterDesign DesignOfGain(const Request& request) {
    return DesignAt(request, request.Values[1], request.Values[2]);
}

std::unique_ptr<Effect> Cascade(const std::vector<FilterSection>& sections) {
    return std::make_unique<FilterCascade>(sections);
}

// In pairs of band edges, one gain and one weight each; as many bands as ascend.
std::vector<FilterBand> BandsOf(const Request& request) {
    const auto& edges = request.Arrays[0];
    const auto& gains = request.Arrays[1];
    const auto& weights = request.Arrays[2];
    const double half = request.Rate / 2;
    std::vector<FilterBand> bands;
    for (std::size_t i = 0; 2 * i + 1 < edges.size() && bands.size() < kMostBands; ++i) {
        const double before = bands.empty() ? 0.0 : bands.back().To + kNarrowestBand;
        const double from = std::max(edges[2 * i] / half, before);
        const double to = std::min(edges[2 * i + 1] / half, 1.0);
        if (to - from < kNarrowestBand) continue;
        const double decibels = i < gains.size() ? gains[i] : 0.0;
        bands.push_back({from, to, decibels > kNoGain ? FactorOfDecibels(decibels) : 0.0,
                         i < weights.size() ? weights[i] : 1.0});
    }
    return bands;
}

}  // namespace

std::unique_ptr<Effect> MakeLowPass(const Request& request) {
    return Cascade(Design(request).LowPass());
}

std::unique_ptr<Effect> MakeHighPass(const Request& request) {
    return Cascade(Design(request).HighPass());
}

std::unique_ptr<Effect> MakeBandPass(const Request& request) {
    return Cascade(Design(request).BandPass(kBandPassOctaves));
}

std::unique_ptr<Effect> MakeNotch(const Request& request) {
    return Cascade(Design(request).Notch(kNotchOctaves));
}

std::unique_ptr<Effect> MakePeak(const Request& request) {
    return Cascade(DesignOfGain(request).Bell(kBellOctaves, request.Values[0]));
}

std::unique_ptr<Effect> MakeLowShelf(const Request& request) {
    return Cascade(DesignOfGain(request).LowShelf(request.Values[0]));
}

std::unique_ptr<Effect> MakeHighShelf(const Request& request) {
    return Cascade(DesignOfGain(request).HighShelf(request.Values[0]));
}

std::unique_ptr<Effect> MakeEqualizer(const Request& request) {
    const auto& gains = request.Arrays[0];
    const auto& frequencies = request.Arrays[1];
    std::vector<GainPoint> points;
    for (std::size_t i = 0; i < std::min(gains.size(), frequencies.size()); ++i)
        points.push_back({frequencies[i], gains[i]});
    if (points.empty()) return nullptr;
    // Some 0.1 s: enough to tell the lowest octaves apart.
    const std::size_t taps = std::clamp<std::size_t>(
        std::bit_floor(static_cast<std::size_t>(request.Rate * 0.095)), 512, 16384);
    const EqualizerCurve curve(std::move(points));
    const auto filter = MinimumPhaseFilter(
        [&](double place) { return FactorOfDecibels(curve.DecibelsAt(place * request.Rate / 2)); },
        taps, request.Library);
    return std::make_unique<Convolution>(filter, 0, request.Library);
}

std::unique_ptr<Effect> MakeFFTFilter(const Request& request) {
    const auto& gains = request.Arrays[0];
    if (gains.empty()) return nullptr;
    // Four for each gain, so that the filter follows them all.
    const std::size_t taps =
        std::bit_ceil(std::clamp<std::size_t>(4 * gains.size(), 1024, 32768)) - 1;
    const auto filter = SymmetricalFilter(
        [&](double place) {
            const double index = place * static_cast<double>(gains.size() - 1);
            const auto from = static_cast<std::size_t>(index);
            const std::size_t to = std::min(from + 1, gains.size() - 1);
            return (gains[from] + (gains[to] - gains[from]) * (index - std::floor(index))) / 100;
        },
        taps, request.Library);
    return std::make_unique<Convolution>(filter, taps / 2, request.Library);
}

std::unique_ptr<Effect> MakeFIRFilter(const Request& request) {
    const auto bands = BandsOf(request);
    if (bands.empty()) return nullptr;
    const std::size_t taps = static_cast<std::size_t>(request.Values[0]) | 1;
    const auto filter = ExchangeFilter(bands, taps, [&] { request.Report.Report(0); });
    return std::make_unique<Convolution>(filter, taps / 2, request.Library);
}

}  // namespace mavrin2::kestrin
