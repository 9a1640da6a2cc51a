#include <cmath>

#include "tests/kestrin/transform_test.h"

namespace mavrin2::kestrin {
namespace {

class LevelsTest : public TransformTest {};

TEST_F(LevelsTest, GainsAreExactAndLimitedNeverWrapped) {
    const Samples ends = {0, 1, -1, 100, -101, 20000, -20000, 32767, -32768};
    EXPECT_EQ(Run(Id::Amplify, ends, {100}), ends);
    EXPECT_EQ(Run(Id::Amplify, ends, {200}),
              (Samples{0, 2, -2, 200, -202, 32767, -32768, 32767, -32768}));
    EXPECT_EQ(Run(Id::Amplify, ends, {50}),
              (Samples{0, 0, 0, 50, -50, 10000, -10000, 16384, -16384}));
    EXPECT_EQ(Run(Id::Amplify, ends, {0}), Samples(ends.size()));
    EXPECT_EQ(Run(Id::Invert, ends), (Samples{0, -1, 1, -100, 101, -20000, 20000, -32767, 32767}));
    EXPECT_EQ(Run(Id::Silence, ends), Samples(ends.size()));
    VectorBlock twice(ends);
    Percents progress;
    Run(Id::Amplify, twice, {200}, {}, progress);
    EXPECT_EQ(progress.Limited, 4U);
    EXPECT_EQ(Run(Id::Reverse, {1, 2, 3, 4, 5}), (Samples{5, 4, 3, 2, 1}));
}

TEST_F(LevelsTest, AFadeIsAStraightLineFromEndToEnd) {
    const std::size_t count = 100001;
    const Samples faded = Run(Id::Fade, Samples(count, 20000), {0, 150});
    for (const std::size_t i : {0UL, 1UL, 2047UL, 2048UL, 2049UL, 50000UL, 77777UL, 100000UL})
        EXPECT_NEAR(faded[i], 30000.0 * static_cast<double>(i) / (count - 1), 1) << i;
}

TEST_F(LevelsTest, AnEnvelopePassesThroughItsPoints) {
    const Floats points = {100, 0, 50, 50, 200};
    const Samples shaped = Run(Id::Envelope, Samples(40001, 10000), {}, {points});
    for (std::size_t i = 0; i < points.size(); ++i)
        EXPECT_NEAR(shaped[i * 10000], points[i] * 100, 1) << i;
    EXPECT_NEAR(shaped[5000], 5000, 1);
    EXPECT_EQ(Run(Id::Envelope, Samples(9, 10000), {}, {Floats{25}}), Samples(9, 2500));
    // More points than samples.
    EXPECT_EQ(Run(Id::Envelope, {100, 100}, {}, {Floats{10, 20, 30, 40}}), (Samples{10, 40}));
}

TEST_F(LevelsTest, NormalizeReachesTheTargetAndRemovesAnOffset) {
    Samples offset = Sine(1000, 44100, 0.2);
    for (auto& sample : offset)
        sample = static_cast<std::int16_t>(sample + 3000);
    for (const float target : {100.0F, 50.0F, 1.0F, 0.0F}) {
        EXPECT_NEAR(Peak(Run(Id::Normalize, offset, {target, 0})), 327.67 * target, 1) << target;
        const Samples centred = Run(Id::Normalize, offset, {target, -1});
        EXPECT_NEAR(Peak(centred), 327.67 * target, 1) << target;
        double mean = 0;
        for (const auto sample : centred)
            mean += sample;
        EXPECT_NEAR(mean / static_cast<double>(centred.size()), 0, 1) << target;
    }
    EXPECT_EQ(Run(Id::Normalize, Samples(100), {95, -1}), Samples(100));
    EXPECT_EQ(Run(Id::Normalize, Samples(100, 77), {95, -1}), Samples(100));
}

TEST_F(LevelsTest, ChannelsAreMixedByTheirFourGains) {
    const Samples frames = {1000, -2000, 30000, 20000};
    EXPECT_EQ(Run(Id::MixStereoChannels, frames, {0, 100, 100, 0}),
              (Samples{-2000, 1000, 20000, 30000}));
    EXPECT_EQ(Run(Id::MixStereoChannels, frames, {50, -100, 50, 100}),
              (Samples{-500, -3000, 25000, -10000}));
}

TEST_F(LevelsTest, ACompressorFlattensTheCurveAboveItsThreshold) {
    // The level of a sine is 3 dB below its amplitude.
    for (const double level : {-6.0, -12.0, -18.0, -40.0}) {
        const double amplitude = std::pow(10.0, (level + 3.01) / 20);
        const Samples out = Run(Id::Compressor, Sine(1000, 44100, amplitude), {-20, 4, 50});
        const double expected = level > -20 ? -20 + (level + 20) / 4 : level;
        EXPECT_NEAR(Decibels(Rms(Middle(out))), expected, 0.1) << level;
    }
}

TEST_F(LevelsTest, AnExpanderLowersWhatIsBelowItsThreshold) {
    for (const double level : {-10.0, -35.0, -45.0}) {
        const double amplitude = std::pow(10.0, (level + 3.01) / 20);
        const Samples out = Run(Id::Expander, Sine(1000, 44100, amplitude), {-30, 2, 50});
        const double expected = level < -30 ? level + (level + 30) : level;
        EXPECT_NEAR(Decibels(Rms(Middle(out))), expected, 0.4) << level;
    }
}

// The level is measured over the time given, around each moment.
TEST_F(LevelsTest, ACompressorMovesOverItsTime) {
    Samples step = Sine(2000, 44100, 0.02);
    const Samples loud = Sine(2000, 44100, 0.8);
    step.insert(step.end(), loud.begin(), loud.end());
    const Samples out = Run(Id::Compressor, step, {-20, 10, 200});
    const auto levelAt = [&](double seconds) {
        return Decibels(
            Rms(std::span(out).subspan(static_cast<std::size_t>(seconds * 44100), 441)));
    };
    const double before = Decibels(0.02 * std::sqrt(0.5));
    EXPECT_NEAR(levelAt(0.85), before, 0.3);
    EXPECT_LT(levelAt(0.985), before - 5);  // half of the time before the step it has begun
    EXPECT_NEAR(levelAt(1.15), levelAt(1.8), 0.3);
}

TEST_F(LevelsTest, NoiseHasItsLevelAndItsColor) {
    // Decibels from one octave's power to that of the next.
    const double slopes[] = {3.01, 0, -3.01};
    for (int type = 0; type < 3; ++type) {
        const Samples noise = Run(Id::AddNoise, Samples(1 << 18), {-20, static_cast<float>(type)});
        EXPECT_NEAR(Decibels(Rms(noise)), -20, 0.7) << type;
        const auto octave = [&](float frequency) {
            return Rms(Run(Id::BandPassFilter, noise, {frequency, 4}));
        };
        for (const float frequency : {500.0F, 2000.0F})
            EXPECT_NEAR(Decibels(octave(2 * frequency) / octave(frequency)), slopes[type], 0.6)
                << type << " " << frequency;
    }
    const Samples tone = Sine(1000, 44100);
    EXPECT_NEAR(AmplitudeAt(Run(Id::AddNoise, tone, {-30, 0}), 1000), 0.5, 0.001);
    // The channels of a pair get noise that is not the same.
    EXPECT_NEAR(Correlation(Run(Id::AddNoise, Samples(44100), {-20, 0}),
                            Run(Id::AddNoise, Samples(44100), {-20, 0})),
                0, 0.03);
}

}  // namespace
}  // namespace mavrin2::kestrin
