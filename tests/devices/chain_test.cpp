#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "companions/rimbal/chain/recording_chain.h"
#include "tests/support/noise.h"

namespace mavrin2::rimbal {
namespace {

using tests::Samples;

constexpr std::int32_t kRate = 44100;

class Chain : public testing::Test {
protected:
    RecordingSettings& Settings() { return wanted_; }

    // What is stored of a sound that arrives in pieces of so many frames.
    Samples Recorded(Samples sound, std::int32_t channels = 1, std::size_t piece = 882) {
        const auto shared = std::make_shared<SharedSettings>();
        shared->Change([&](RecordingSettings& all) { all = wanted_; });
        RecordingChain chain({kRate, channels}, shared);
        Samples stored;
        for (std::span<std::int16_t> rest(sound); !rest.empty();) {
            const auto part =
                rest.first(std::min(rest.size(), piece * static_cast<std::size_t>(channels)));
            chain.Process(part);
            chain.Store(part, stored);
            rest = rest.subspan(part.size());
        }
        gain_ = chain.Gain();
        return stored;
    }

    static Samples Sine(double frequency, double level, double seconds) {
        Samples sine(static_cast<std::size_t>(seconds * kRate));
        for (std::size_t i = 0; i < sine.size(); ++i)
            sine[i] = static_cast<std::int16_t>(
                std::lround(level * std::sin(2 * std::numbers::pi * frequency *
                                             static_cast<double>(i) / kRate)));
        return sine;
    }
    // The level of a sine's second half, in decibels against what went in.
    double Response(double frequency) {
        constexpr double kLevel = 20'000;
        const Samples out = Recorded(Sine(frequency, kLevel, 2));
        double squares = 0;
        for (std::size_t i = out.size() / 2; i < out.size(); ++i)
            squares += double{1} * out[i] * out[i];
        const double power = squares * 2 / static_cast<double>(out.size());
        return 10 * std::log10(power / (kLevel * kLevel / 2) + 1e-12);
    }
    static std::int32_t Peak(std::span<const std::int16_t> samples) {
        std::int32_t peak = 0;
        for (const std::int16_t sample : samples)
            peak = std::max(peak, std::abs(std::int32_t{sample}));
        return peak;
    }

    RecordingSettings wanted_;
    std::int32_t gain_ = 0;
};

TEST_F(Chain, FiltersAsTheirDesignsSay) {
    Settings().Notch = {true, 1000};
    EXPECT_LT(Response(1000), -50);
    EXPECT_NEAR(Response(950), -3, 0.3);
    EXPECT_NEAR(Response(1051), -3, 0.3);
    EXPECT_NEAR(Response(500), 0, 0.1);
    EXPECT_NEAR(Response(4000), 0, 0.1);
    Settings() = {};
    Settings().HighPass = {true, 1000};
    EXPECT_NEAR(Response(1000), -3.01, 0.05);
    EXPECT_NEAR(Response(100), -40, 0.3);
    EXPECT_NEAR(Response(8000), 0, 0.05);
    Settings() = {};
    Settings().LowPass = {true, 1000};
    EXPECT_NEAR(Response(1000), -3.01, 0.05);
    EXPECT_NEAR(Response(100), 0, 0.05);
    // 12 dB for an octave, and the bilinear design's zero at half the rate.
    EXPECT_NEAR(Response(4000), -24.9, 0.5);
    Settings().HighPass = {true, 1000};
    EXPECT_NEAR(Response(1000), -6.02, 0.1);
}

TEST_F(Chain, LeavesSamplesAloneWhereEverythingIsOff) {
    const Samples noise = tests::Noise(30'000);
    EXPECT_EQ(Recorded(noise, 2), noise);
    for (const float off :
         {-1.0F, 0.0F, 0.99F, 0.491F * kRate, 1e30F, std::numeric_limits<float>::quiet_NaN()}) {
        Settings().Notch = Settings().HighPass = Settings().LowPass = {true, off};
        EXPECT_EQ(Recorded(noise, 2), noise) << off;
    }
}

TEST_F(Chain, GivesTheSameHoweverTheSoundArrives) {
    Settings().Notch = {true, 50};
    Settings().HighPass = {true, 80};
    Settings().LowPass = {true, 9000};
    Settings().Gain = {true, 4000, 8000, 100};
    Settings().Gate = {true, 20, 1000, 100, 900};
    const Samples noise = tests::Noise(60'000);
    const Samples whole = Recorded(noise, 2, 30'000);
    EXPECT_GT(whole.size(), 30'000U);
    EXPECT_EQ(Recorded(noise, 2, 1), whole);
    EXPECT_EQ(Recorded(noise, 2, 997), whole);
    // A channel is not heard in the other one.
    Samples left = noise;
    for (std::size_t i = 1; i < left.size(); i += 2)
        left[i] = 0;
    Settings().Gate.Enabled = false;
    const Samples out = Recorded(left, 2);
    for (std::size_t i = 1; i < out.size(); i += 2)
        ASSERT_EQ(out[i], 0);
}

TEST_F(Chain, KeepsPeaksBetweenTheLevels) {
    Settings().Gain = {true, 8000, 16'000, 200};
    const auto peakAtEnd = [&](double level) {
        const Samples out = Recorded(Sine(440, level, 2));
        return Peak(std::span(out).last(kRate / 10));
    };
    EXPECT_NEAR(peakAtEnd(2000), 8000, 80);
    EXPECT_NEAR(gain_, 400, 4);
    EXPECT_NEAR(peakAtEnd(32'000), 16'000, 160);
    EXPECT_NEAR(gain_, 50, 1);
    EXPECT_NEAR(peakAtEnd(12'000), 12'000, 1);
    EXPECT_EQ(gain_, 100);
    // No more than 1000 %, and not for silence.
    EXPECT_NEAR(peakAtEnd(200), 2000, 20);
    EXPECT_EQ(peakAtEnd(20), 20);
    // Within 5 % after the attack time.
    const Samples out = Recorded(Sine(440, 2000, 0.23));
    EXPECT_GT(Peak(std::span(out).last(kRate / 100)), 8000 * 0.9);
    EXPECT_LT(Peak(std::span(out).subspan(kRate * 4 / 100, kRate / 100)), 8000 * 0.8);
}

TEST_F(Chain, StoresSoundAndNotSilence) {
    // Silence, a click, silence, a second of sound, silence, sound.
    constexpr std::size_t kTenth = kRate / 10;
    Samples sound(kTenth * 5);
    const Samples click = Sine(1000, 9000, 0.02);
    std::copy(click.begin(), click.end(), sound.begin() + kTenth);
    const std::size_t begin = sound.size();
    const Samples second = Sine(1000, 9000, 1);
    sound.insert(sound.end(), second.begin(), second.end());
    sound.resize(sound.size() + kTenth * 10);
    const std::size_t again = sound.size();
    const Samples half = Sine(1000, 3000, 0.5);
    sound.insert(sound.end(), half.begin(), half.end());

    Settings().Gate = {true, 50, 2000, 300, 1000};
    const Samples stored = Recorded(sound);
    // From where sound begins to 300 ms after its end, then the other sound, to 10 ms.
    constexpr std::size_t kWindow = kRate / 100;
    const auto expected = static_cast<double>(second.size() + kTenth * 3 + half.size());
    EXPECT_NEAR(static_cast<double>(stored.size()), expected, kWindow * 3);
    EXPECT_TRUE(std::equal(stored.begin(), stored.begin() + kRate, sound.begin() + begin));
    EXPECT_TRUE(std::equal(stored.end() - kTenth * 5, stored.end(), sound.begin() + again));
    // Too quiet to begin with, loud enough to go on.
    Settings().Gate.AttackLevel = 5000;
    EXPECT_NEAR(static_cast<double>(Recorded(sound).size()),
                static_cast<double>(second.size() + kTenth * 3), kWindow * 3);
}

}  // namespace
}  // namespace mavrin2::rimbal
