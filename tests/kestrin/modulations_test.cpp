#include <algorithm>
#include <cmath>

#include "tests/kestrin/transform_test.h"

namespace mavrin2::kestrin {
namespace {

class ModulationsTest : public TransformTest {
protected:
    static Samples Click(std::size_t count, std::size_t at = 100) {
        Samples click(count);
        click[at] = 20000;
        return click;
    }
    static std::span<const std::int16_t> Part(const Samples& samples, double from, double to) {
        const auto first = static_cast<std::size_t>(from * 44100);
        return std::span(samples).subspan(first, static_cast<std::size_t>(to * 44100) - first);
    }
};

TEST_F(ModulationsTest, ADelayRepeatsWithFallingLevel) {
    const Samples out = Run(Id::Delay, Click(44100), {100, 50, 40});
    EXPECT_EQ(out[100], 20000);
    EXPECT_EQ(out[100 + 4410], 10000);
    EXPECT_EQ(out[100 + 2 * 4410], 4000);
    EXPECT_EQ(out[100 + 3 * 4410], 1600);
    EXPECT_NEAR(Rms(out) * Rms(out) * 44100 * 32768 * 32768, 4e8 + 1e8 * (1 / (1 - 0.16)),
                2e6);  // and nothing else
    EXPECT_EQ(Run(Id::Delay, Click(1000), {100, 0, 95}), Click(1000));
}

// A delay of d cancels the frequencies at odd multiples of 1 / 2d.
TEST_F(ModulationsTest, AFlangerIsAComb) {
    const Floats still = {1, 100, 0, 0, 1, 0};
    EXPECT_LT(GainAt(500, Id::Flanger, still), -50);
    EXPECT_LT(GainAt(1500, Id::Flanger, still), -45);
    EXPECT_NEAR(GainAt(1000, Id::Flanger, still), 0, 0.1);
    // With feedback the peaks rise above what is between them.
    const Floats feedback = {1, 100, 70, 0, 1, 0};
    EXPECT_GT(GainAt(1000, Id::Flanger, feedback) - GainAt(1250, Id::Flanger, feedback), 6);
}

TEST_F(ModulationsTest, AFlangerSweepsItsComb) {
    // The sine starts at its middle; a quarter of a second later the delay is longest: 1.5 ms.
    const Samples out = Run(Id::Flanger, WhiteNoise(88200), {1, 100, 0, 50, 1, 0});
    const auto around = Part(out, 0.24, 0.26);
    const Samples tones = {};
    EXPECT_LT(
        AmplitudeAt(Part(Run(Id::Flanger, Sine(333.3, 88200), {1, 100, 0, 50, 1, 0}), 0.235, 0.265),
                    333.3),
        0.02);
    EXPECT_GT(Rms(around), 0.1);
}

TEST_F(ModulationsTest, AChorusSoundsLikeSeveralVoices) {
    const Samples tone = Sine(1000, 88200);
    const Samples out = Run(Id::Chorus, tone, {25, 100, 0, 20, 1.5, 0});
    // Voices of a moving pitch: beside the tone there are others, within a semitone.
    EXPECT_GT(Rms(out), 0.1);
    double beside = 0;
    for (double frequency = 960; frequency < 1040; frequency += 0.5)
        if (std::abs(frequency - 1000) > 3) beside = std::max(beside, AmplitudeAt(out, frequency));
    EXPECT_GT(beside, 0.02);
    EXPECT_LT(AmplitudeAt(out, 800), 1e-3);
    EXPECT_EQ(Run(Id::Chorus, tone, {25, 0, 0, 20, 1.5, 0}), tone);
}

TEST_F(ModulationsTest, APhaserMovesTwoNotches) {
    // The first notch is where each of four filters turns by 45 degrees: at 0.414 of their
    // frequency, which starts at 4 / (π · 4 ms) = 318 Hz and is at 8 times that a second later.
    const auto levelOf = [&](double frequency, double from) {
        return AmplitudeAt(
            Part(Run(Id::Phaser, Sine(frequency, 88200), {4, 100, 0}), from, from + 0.06),
            frequency);
    };
    EXPECT_LT(levelOf(1055, 0.97), 0.05);
    EXPECT_GT(levelOf(1055, 0.0), 0.15);
    EXPECT_LT(levelOf(318 * 2.414, 0.0), 0.1);
    EXPECT_GT(levelOf(50, 0.97), 0.45);
    EXPECT_EQ(Run(Id::Phaser, Sine(440, 10000), {4, 0, 90}), Sine(440, 10000));
}

TEST_F(ModulationsTest, AVibratoSwingsThePitchAndStaysInPlace) {
    const Samples out = Run(Id::Vibrato, Sine(1000, 88200), {50, 1, 0});
    const auto centsAt = [&](double seconds) {
        return 1200 *
               std::log2(FrequencyNear(Part(out, seconds - 0.01, seconds + 0.01), 1000) / 1000);
    };
    EXPECT_NEAR(centsAt(0.5), 0, 2);
    EXPECT_NEAR(centsAt(0.75), -50, 3);
    EXPECT_NEAR(centsAt(1.25), 50, 3);
    EXPECT_NEAR(Rms(Part(out, 0.1, 1.9)), Rms(Sine(1000, 44100)), 0.001);
    const Samples click = Run(Id::Vibrato, Click(44100, 22050), {0, 5, 0});
    EXPECT_NEAR(click[22050], 20000, 2);
}

// A room: after the direct sound silence for the delay, then a dense noise that fades at a steady
// rate, high tones faster.
TEST_F(ModulationsTest, AReverbHasATailLikeARoom) {
    Samples click(3 * 44100);
    click[100] = 30000;
    const Samples out = Run(Id::Reverb, click, {30, 100, 80, 100, 4000, 12});
    EXPECT_EQ(out[100], 30000);
    EXPECT_EQ(Peak(Part(out, 0.003, 0.031)), 0);
    const auto levelAt = [&](double seconds) {
        return Decibels(Rms(Part(out, seconds, seconds + 0.1)));
    };
    const double fall = levelAt(0.2) - levelAt(0.4);
    EXPECT_GT(fall, 4);
    EXPECT_LT(fall, 40);
    EXPECT_NEAR(levelAt(0.3) - levelAt(0.5), fall, 0.35 * fall);

    // As dense as noise: a third of the samples is beyond one standard deviation.
    const auto tail = Part(out, 0.3, 0.35);
    const double deviation = Rms(tail) * 32768;
    const auto beyond = std::count_if(tail.begin(), tail.end(),
                                      [&](int sample) { return std::abs(sample) > deviation; });
    EXPECT_NEAR(static_cast<double>(beyond) / static_cast<double>(tail.size()), 0.317, 0.07);

    const auto bandFall = [&](float frequency) {
        const Samples band = Run(Id::BandPassFilter, out, {frequency, 2});
        return Decibels(Rms(Part(band, 0.15, 0.25))) - Decibels(Rms(Part(band, 0.35, 0.45)));
    };
    EXPECT_GT(bandFall(6000), 1.5 * bandFall(500));

    // More feedback, a longer tail; without the tail only the early reflections.
    const Samples lasting = Run(Id::Reverb, click, {30, 100, 95, 100, 4000, 12});
    EXPECT_GT(Rms(Part(lasting, 0.9, 1.0)), 4 * Rms(Part(out, 0.9, 1.0)));
    const Samples early = Run(Id::Reverb, click, {30, 100, 80, 0, 4000, 12});
    EXPECT_EQ(Peak(Part(early, 0.12, 1)), 0);
    EXPECT_EQ(std::count_if(early.begin() + 101, early.end(), [](int x) { return x != 0; }), 12);
}

}  // namespace
}  // namespace mavrin2::kestrin
