#pragma once

#include <cstdint>
#include <span>
#include <vector>

// Sounds to test with, and what can be measured of one. Levels are relative to full scale (32768).
namespace mavrin2::test {

using Samples = std::vector<std::int16_t>;

// `phase` in turns.
Samples Sine(double frequency, std::size_t count, double amplitude = 0.5, double rate = 44100,
             double phase = 0);
// White, uniform, the same in every run for one seed.
Samples WhiteNoise(std::size_t count, double amplitude = 0.5, unsigned seed = 1);
Samples Sum(const Samples& a, const Samples& b);

// Root mean square.
double Rms(std::span<const std::int16_t> sound);
double Decibels(double factor);
int Peak(std::span<const std::int16_t> sound);
// The largest step from one sample to the next.
int LargestStep(std::span<const std::int16_t> sound);

// The amplitude of a sine of this frequency in the sound, seen through a Hann window.
double AmplitudeAt(std::span<const std::int16_t> sound, double frequency, double rate = 44100);
// The frequency of the sine that is there near `frequency`: from the turn of its phase between the
// two halves of the sound.
double FrequencyNear(std::span<const std::int16_t> sound, double frequency, double rate = 44100);

// −1 … 1.
double Correlation(std::span<const std::int16_t> a, std::span<const std::int16_t> b);

}  // namespace mavrin2::test
