#include "companions/kestrin/kernels/response_design.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>

namespace mavrin2::kestrin {
namespace {

constexpr double kLowestGain = 1e-5;

// 1 in the middle of the window and 0 at its ends.
double Blackman(double place) {
    const double angle = std::numbers::pi * place;
    return 0.42 + 0.5 * std::cos(angle) + 0.08 * std::cos(2 * angle);
}

double PlaceOf(std::size_t index, std::size_t count) {
    return static_cast<double>(index) / static_cast<double>(count - 1);
}

}  // namespace

std::vector<float> SymmetricalFilter(const GainCurve& gain, std::size_t taps,
                                     const Libraries& libraries) {
    const auto fourier = libraries.MakeFourier(std::bit_ceil(4 * taps));
    const auto spectrum = fourier->Spectrum();
    for (std::size_t i = 0; i < spectrum.size(); ++i)
        spectrum[i] = static_cast<float>(gain(PlaceOf(i, spectrum.size())));
    fourier->Inverse();
    const auto time = fourier->Time();
    const std::size_t middle = taps / 2;
    std::vector<float> filter(taps);
    for (std::size_t i = 0; i <= middle; ++i) {
        const double window = Blackman(static_cast<double>(i) / static_cast<double>(middle + 1));
        filter[middle + i] = filter[middle - i] = static_cast<float>(time[i] * window);
    }
    return filter;
}

std::vector<float> MinimumPhaseFilter(const GainCurve& gain, std::size_t taps,
                                      const Libraries& libraries) {
    // So large that the cepstrum has faded where it wraps around.
    const auto fourier = libraries.MakeFourier(std::bit_ceil(8 * taps));
    const auto spectrum = fourier->Spectrum();
    const auto time = fourier->Time();
    for (std::size_t i = 0; i < spectrum.size(); ++i)
        spectrum[i] =
            static_cast<float>(std::log(std::max(gain(PlaceOf(i, spectrum.size())), kLowestGain)));
    fourier->Inverse();
    // Folded onto positive times.
    const std::size_t half = time.size() / 2;
    for (std::size_t i = 1; i < half; ++i)
        time[i] *= 2;
    std::fill(time.begin() + static_cast<std::ptrdiff_t>(half) + 1, time.end(), 0.0F);
    fourier->Forward();
    for (auto& value : spectrum)
        value = std::exp(value);
    fourier->Inverse();
    std::vector<float> filter(time.begin(), time.begin() + static_cast<std::ptrdiff_t>(taps));
    // The last eighth fades out, where next to nothing is left.
    const std::size_t fade = taps / 8;
    for (std::size_t i = 0; i < fade; ++i)
        filter[taps - 1 - i] *=
            static_cast<float>(0.5 - 0.5 * std::cos(std::numbers::pi * PlaceOf(i, fade + 1)));
    return filter;
}

EqualizerCurve::EqualizerCurve(std::vector<GainPoint> points) {
    std::stable_sort(points.begin(), points.end(),
                     [](const auto& a, const auto& b) { return a.Frequency < b.Frequency; });
    for (const GainPoint& point : points) {
        if (!(point.Frequency > 0)) continue;
        const double octave = std::log2(point.Frequency);
        if (!knots_.empty() && knots_.back().Octave == octave)
            knots_.back().Decibels = point.Decibels;
        else
            knots_.push_back({octave, point.Decibels, 0});
    }
    const auto width = [&](std::size_t i) { return knots_[i + 1].Octave - knots_[i].Octave; };
    const auto rise = [&](std::size_t i) {
        return (knots_[i + 1].Decibels - knots_[i].Decibels) / width(i);
    };
    // At the ends and at peaks it is level, elsewhere a mean of both sides that cannot overshoot.
    for (std::size_t i = 1; i + 1 < knots_.size(); ++i) {
        const double before = rise(i - 1);
        const double after = rise(i);
        if (before * after <= 0) continue;
        const double first = 2 * width(i) + width(i - 1);
        const double second = width(i) + 2 * width(i - 1);
        knots_[i].Slope = (first + second) / (first / before + second / after);
    }
}

double EqualizerCurve::DecibelsAt(double frequency) const {
    if (knots_.empty()) return 0;
    const double octave = frequency > 0 ? std::log2(frequency) : knots_.front().Octave;
    if (octave <= knots_.front().Octave) return knots_.front().Decibels;
    if (octave >= knots_.back().Octave) return knots_.back().Decibels;
    const auto after =
        std::upper_bound(knots_.begin(), knots_.end(), octave,
                         [](double value, const Knot& knot) { return value < knot.Octave; });
    const Knot& to = *after;
    const Knot& from = *(after - 1);
    const double width = to.Octave - from.Octave;
    const double t = (octave - from.Octave) / width;
    return from.Decibels * (1 + 2 * t) * (1 - t) * (1 - t) +
           from.Slope * width * t * (1 - t) * (1 - t) + to.Decibels * t * t * (3 - 2 * t) +
           to.Slope * width * t * t * (t - 1);
}

}  // namespace mavrin2::kestrin
