#include <algorithm>
#include <cmath>

#include "tests/kestrin/transform_test.h"

namespace mavrin2::kestrin {
namespace {

class LengthsTest : public TransformTest {
protected:
    static double CentsOf(std::span<const std::int16_t> sound, double frequency) {
        return 1200 * std::log2(FrequencyNear(sound, frequency) / frequency);
    }
    static Samples Pieces(std::initializer_list<std::pair<std::size_t, int>> runs) {
        Samples samples;
        for (const auto& [count, value] : runs)
            samples.insert(samples.end(), count, static_cast<std::int16_t>(value));
        return samples;
    }
};

TEST_F(LengthsTest, AStretchChangesTheLengthAndKeepsThePitch) {
    const Samples tone = Sine(440, 100001);
    for (const float rate : {50.0F, 80.0F, 97.3F, 100.0F, 120.0F, 200.0F, 400.0F}) {
        const Samples out = Run(Id::TimeStretch, tone, {rate});
        EXPECT_NEAR(static_cast<double>(out.size()), 100001 * rate / 100, 1) << rate;
        EXPECT_NEAR(CentsOf(Middle(out), 440), 0, 1) << rate;
        EXPECT_NEAR(Rms(Middle(out)), Rms(tone), 0.02 * Rms(tone)) << rate;
        EXPECT_LT(LargestStep(out), 1.2 * LargestStep(tone)) << rate;
    }
}

TEST_F(LengthsTest, APitchShiftChangesThePitchAndKeepsTheLength) {
    const Samples tone = Sine(440, 100001);
    for (const float rate : {50.0F, 94.4F, 105.9F, 150.0F, 200.0F}) {
        const Samples out = Run(Id::PitchShift, tone, {rate});
        EXPECT_EQ(out.size(), tone.size()) << rate;
        EXPECT_NEAR(CentsOf(Middle(out), 440 * rate / 100), 0, 1) << rate;
        EXPECT_NEAR(Rms(Middle(out)), Rms(tone), 0.02 * Rms(tone)) << rate;
    }
}

TEST_F(LengthsTest, ResamplingChangesBoth) {
    const Samples tone = Sine(440, 44100);
    for (const float rate : {50.0F, 91.875F, 108.84F, 300.0F}) {
        const Samples out = Run(Id::Resample, tone, {rate});
        EXPECT_NEAR(static_cast<double>(out.size()), 44100 * rate / 100, 1) << rate;
        EXPECT_NEAR(CentsOf(Middle(out), 440 * 100 / rate), 0, 0.1) << rate;
        EXPECT_NEAR(AmplitudeAt(Middle(out), 440 * 100 / rate), 0.5, 0.002) << rate;
    }
    // What half of the samples cannot carry is gone, not folded back.
    EXPECT_LT(Rms(Middle(Run(Id::Resample, Sine(13000, 44100), {50}))), 1e-4);
}

TEST_F(LengthsTest, EventsStayWhereTheyBelong) {
    // A tone that begins in the middle, stretched to twice the length.
    Samples sound(44100);
    const Samples tone = Sine(600, 44100);
    sound.insert(sound.end(), tone.begin(), tone.end());
    const Samples out = Run(Id::TimeStretch, sound, {200});
    const auto begin =
        std::find_if(out.begin(), out.end(), [](int x) { return std::abs(x) > 8000; });
    EXPECT_NEAR(static_cast<double>(begin - out.begin()), 88200, 0.03 * 44100);
}

// One operation after the other, as the channels of a stereo sound come.
TEST_F(LengthsTest, BothChannelsOfAStereoSoundStayInPhase) {
    const std::size_t count = 88200;
    const Samples common = Sum(WhiteNoise(count, 0.2, 1), Sine(300, count, 0.2));
    const Samples left = Sum(common, Sine(1234, count, 0.1));
    const Samples right = Sum(common, WhiteNoise(count, 0.05, 2));
    const double before = Correlation(left, right);
    for (const Id id : {Id::TimeStretch, Id::PitchShift}) {
        const Samples first = Run(id, left, {130});
        const Samples second = Run(id, right, {130});
        EXPECT_EQ(first.size(), second.size());
        EXPECT_NEAR(Correlation(first, second), before, 0.02);
    }
    // The same sound on both sides stays the same sound.
    EXPECT_EQ(Run(Id::TimeStretch, left, {70}), Run(Id::TimeStretch, left, {70}));
}

// Without smoothing nothing but what comes tells which channels belong together.
TEST_F(LengthsTest, ChannelsArePairedByWhatComesBetweenThem) {
    const std::size_t count = 44100;
    const Samples noise = WhiteNoise(count, 0.3, 1);
    const Samples others = WhiteNoise(count, 0.3, 2);
    const Samples alone = Run(Id::TimeStretch, noise, {130});
    const auto stretched = [&] { return Run(Id::TimeStretch, noise, {130}); };
    transform_.SetRate(44100);
    Run(Id::TimeStretch, others, {130});
    Run(Id::Invert, others);
    EXPECT_EQ(stretched(), alone) << "another operation came between";

    transform_.SetRate(44100);
    Run(Id::TimeStretch, others, {130});
    VectorBlock second(others);
    Percents progress;
    progress.AbortAt = 0;
    EXPECT_THROW(Run(Id::TimeStretch, second, {130}, {}, progress), Aborted);
    EXPECT_EQ(stretched(), alone) << "the second channel was not finished";

    // Two sounds of one channel, of the same length: what the first one leaves must not harm.
    Run(Id::PitchShift, others, {130});
    const Samples tone = Run(Id::PitchShift, Sine(440, count), {130});
    EXPECT_NEAR(CentsOf(Middle(tone), 440 * 1.3), 0, 1);
    EXPECT_NEAR(Rms(Middle(tone)), Rms(Sine(440, count)), 0.02 * 0.35);
}

TEST_F(LengthsTest, TrimmingStopsAtTheFirstLoudSample) {
    const Samples sound = Pieces({{1000, 5}, {10, 2000}, {500, 0}, {10, -2000}, {1001, -5}});
    const Samples start = Run(Id::TrimStart, sound, {-60, 0});
    EXPECT_EQ(start, Samples(sound.begin() + 1000, sound.end()));
    const Samples both = Run(Id::TrimEnd, start, {-60, 0});
    EXPECT_EQ(both.size(), 521);  // frames of two stay whole: one more of the odd number is kept
    EXPECT_TRUE(std::equal(both.begin(), both.end(), start.begin()));
    EXPECT_TRUE(Run(Id::TrimStart, sound, {-10, 0}).empty());
    EXPECT_TRUE(Run(Id::TrimEnd, sound, {-10, 0}).empty());
    EXPECT_EQ(Run(Id::TrimStart, {0, 0, 0, 9, 0}, {-96, 0}), (Samples{0, 9, 0}));
}

TEST_F(LengthsTest, TrimmingFadesWhatItKeepsBeforeTheSound) {
    // One channel: 10 ms are 441 samples. The wave of one channel moves slowly.
    Samples sound = Sine(100, 44100, 0.01);
    const Samples loud = Sine(100, 44100);
    sound.insert(sound.end(), loud.begin(), loud.end());
    const Samples out = Run(Id::TrimStart, sound, {-30, 10});
    const auto first =
        std::find_if(out.begin(), out.end(), [](int x) { return std::abs(x) > 1036; });
    EXPECT_NEAR(static_cast<double>(first - out.begin()), 441, 1);
    EXPECT_LT(std::abs(out[1]), 10);

    // Two channels: as many frames.
    Samples frames;
    const Samples other = WhiteNoise(sound.size(), 0.005);
    for (std::size_t i = 0; i < sound.size(); ++i) {
        frames.push_back(sound[i]);
        frames.push_back(other[i]);
    }
    std::reverse(frames.begin(), frames.end());
    const Samples end = Run(Id::TrimEnd, frames, {-30, 10});
    const auto last =
        std::find_if(end.rbegin(), end.rend(), [](int x) { return std::abs(x) > 1036; });
    EXPECT_NEAR(static_cast<double>(last - end.rbegin()), 882, 2);
    EXPECT_EQ(end.size() % 2, 0);
}

TEST_F(LengthsTest, DeletingSilenceKeepsAllSoundAboveTheThreshold) {
    const Samples sound =
        Pieces({{100, 1}, {50, 1000}, {5000, 2}, {60, -1000}, {300, 0}, {70, 900}});
    EXPECT_EQ(Run(Id::DeleteSilence, sound, {-40, 0, 0}),
              Pieces({{50, 1000}, {60, -1000}, {70, 900}}));
    // 1 ms before and 5 ms after: 44 and 221 frames; the pause of 300 is longer by 35.
    const Samples kept = Run(Id::DeleteSilence, sound, {-40, 1, 5});
    EXPECT_EQ(kept.size(), 44 + 50 + 221 + 44 + 60 + 221 + 44 + 70);
    EXPECT_TRUE(std::all_of(kept.begin() + 44, kept.begin() + 94, [](int x) { return x == 1000; }));
    // A shorter pause is no silence.
    EXPECT_EQ(Run(Id::DeleteSilence, Pieces({{9, 900}, {200, 0}, {9, 900}}), {-40, 1, 5}).size(),
              218);
    EXPECT_TRUE(Run(Id::DeleteSilence, Samples(500, 3), {-40, 1, 5}).empty());

    transform_.SetChannels(2);
    const Samples frames = {0, 0, 0, 900, 0, 0, 900, 0, 1, 1};
    EXPECT_EQ(Run(Id::DeleteSilence, frames, {-40, 0, 0}), (Samples{0, 900, 900, 0}));
}

}  // namespace
}  // namespace mavrin2::kestrin
