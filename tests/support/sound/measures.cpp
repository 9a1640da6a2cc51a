#include "tests/support/sound/measures.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <random>

namespace mavrin2::test {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;

std::complex<double> ComponentAt(std::span<const std::int16_t> sound, double frequency,
                                 double rate) {
    std::complex<double> sum = 0;
    const auto size = static_cast<double>(sound.size());
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const auto place = static_cast<double>(i);
        const double window = 0.5 - 0.5 * std::cos(kTurn * (place + 0.5) / size);
        sum += window * sound[i] * std::polar(1.0, -kTurn * frequency * place / rate);
    }
    return sum * 4.0 / size / 32768.0;
}

}  // namespace

Samples Sine(double frequency, std::size_t count, double amplitude, double rate, double phase) {
    Samples samples(count);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = static_cast<std::int16_t>(
            std::lround(amplitude * 32767 *
                        std::sin(kTurn * (phase + frequency * static_cast<double>(i) / rate))));
    return samples;
}

Samples WhiteNoise(std::size_t count, double amplitude, unsigned seed) {
    std::mt19937 random(seed);
    Samples samples(count);
    for (auto& sample : samples)
        sample = static_cast<std::int16_t>(
            std::lround(amplitude * 32767 * (random() / 2147483647.5 - 1)));
    return samples;
}

Samples Sum(const Samples& a, const Samples& b) {
    Samples sum(a.size());
    std::transform(a.begin(), a.end(), b.begin(), sum.begin(),
                   [](int x, int y) { return static_cast<std::int16_t>(x + y); });
    return sum;
}

double Rms(std::span<const std::int16_t> sound) {
    double sum = 0;
    for (const std::int16_t sample : sound)
        sum += double{1} * sample * sample;
    return std::sqrt(sum / static_cast<double>(sound.size())) / 32768;
}

double Decibels(double factor) {
    return 20 * std::log10(std::max(factor, 1e-10));
}

int Peak(std::span<const std::int16_t> sound) {
    int peak = 0;
    for (const std::int16_t sample : sound)
        peak = std::max(peak, std::abs(int{sample}));
    return peak;
}

int LargestStep(std::span<const std::int16_t> sound) {
    int largest = 0;
    for (std::size_t i = 1; i < sound.size(); ++i)
        largest = std::max(largest, std::abs(sound[i] - sound[i - 1]));
    return largest;
}

double AmplitudeAt(std::span<const std::int16_t> sound, double frequency, double rate) {
    return std::abs(ComponentAt(sound, frequency, rate));
}

double FrequencyNear(std::span<const std::int16_t> sound, double frequency, double rate) {
    // Halves so far apart that the phase may not turn by more than half a turn beside `frequency`:
    // first a short distance for a rough value, then the whole.
    for (std::size_t distance = 256; distance < sound.size() / 2; distance *= 2) {
        const std::size_t length = sound.size() - distance;
        const auto first = ComponentAt(sound.first(length), frequency, rate);
        const auto second = ComponentAt(sound.subspan(distance, length), frequency, rate);
        const double expected = kTurn * frequency * static_cast<double>(distance) / rate;
        const double turned = std::remainder(std::arg(second / first) - expected, kTurn);
        frequency += turned * rate / (kTurn * static_cast<double>(distance));
    }
    return frequency;
}

double Correlation(std::span<const std::int16_t> a, std::span<const std::int16_t> b) {
    double both = 0;
    double first = 0;
    double second = 0;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        both += double{1} * a[i] * b[i];
        first += double{1} * a[i] * a[i];
        second += double{1} * b[i] * b[i];
    }
    return both / std::sqrt(std::max(first * second, 1e-9));
}

}  // namespace mavrin2::test
