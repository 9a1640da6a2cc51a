#include "tests/kestrin/transform_test.h"

#include <cmath>
#include <limits>
#include <string>

namespace mavrin2::kestrin {
namespace {

// Values of every parameter that everybody might use.
Floats UsualValues(const Operation& operation) {
    Floats values;
    for (const Parameter& parameter : operation.Values)
        values.push_back(static_cast<float>(
            std::min((parameter.Low + parameter.High) / 2, parameter.Low + 100)));
    return values;
}

std::vector<Floats> UsualArrays(const Operation& operation) {
    std::vector<Floats> arrays;
    for (const Parameter& array : operation.Arrays) {
        const bool areFrequencies = std::string_view(array.Name) == "FreqArray";
        arrays.push_back(areFrequencies ? Floats{0, 1000, 2000, 3000} : Floats{50, 20, 60, 10});
    }
    return arrays;
}

class AllOperationsTest : public TransformTest, public testing::WithParamInterface<std::size_t> {
protected:
    Id Which() const { return static_cast<Id>(GetParam()); }
    const Operation& Described() const { return OperationOf(Which()); }

    // Runs it; no more is asked than that it ends, within the length it may have.
    void RunWith(const Samples& sound, const Floats& values, const std::vector<Floats>& arrays) {
        const Samples out = Run(Which(), sound, values, arrays);
        EXPECT_LE(out.size(), sound.size() * 10);
    }
};

TEST_P(AllOperationsTest, TakesAnyNumberForAnyParameter) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const Floats odd = {std::numeric_limits<float>::quiet_NaN(),
                        kInfinity,
                        -kInfinity,
                        0,
                        -1,
                        1e-30F,
                        -std::numeric_limits<float>::max(),
                        std::numeric_limits<float>::max(),
                        2147483647.0F};
    const Samples sound = WhiteNoise(3000, 1);
    for (std::size_t i = 0; i < Described().Values.size(); ++i)
        for (const float value : odd) {
            Floats values = UsualValues(Described());
            values[i] = value;
            RunWith(sound, values, UsualArrays(Described()));
        }
    for (std::size_t i = 0; i < Described().Arrays.size(); ++i)
        for (const float value : odd) {
            auto arrays = UsualArrays(Described());
            arrays[i] = {value, value, 100, value};
            RunWith(sound, UsualValues(Described()), arrays);
        }
    for (const float value : odd)
        RunWith(sound, Floats(Described().Values.size(), value),
                std::vector<Floats>(Described().Arrays.size(), odd));
}

TEST_P(AllOperationsTest, TakesAnySound) {
    const Floats values = UsualValues(Described());
    const auto arrays = UsualArrays(Described());
    transform_.SetSmoothStart(true);
    transform_.SetSmoothEnd(true);
    for (const std::int32_t smooth : {10, 0, -5, std::numeric_limits<std::int32_t>::max()}) {
        transform_.SetSmoothTime(smooth);
        for (const std::size_t count : {0UL, 1UL, 2UL, 3UL, 100UL, 5000UL}) {
            RunWith(Samples(count), values, arrays);
            RunWith(Samples(count, 32767), values, arrays);
            RunWith(Samples(count, -32768), values, arrays);
        }
    }
    for (const std::int32_t rate : {std::numeric_limits<std::int32_t>::min(), 0, 8000, 192000,
                                    std::numeric_limits<std::int32_t>::max()}) {
        transform_.SetRate(rate);
        transform_.SetChannels(rate);
        RunWith(WhiteNoise(300), values, arrays);
    }
}

TEST_P(AllOperationsTest, TakesArraysOfAnyLengths) {
    for (std::size_t i = 0; i < Described().Arrays.size(); ++i)
        for (const std::size_t count : {0UL, 1UL, 3UL, 70UL, 5000UL}) {
            auto arrays = UsualArrays(Described());
            arrays[i].assign(count, 100);
            for (std::size_t k = 0; k < count; ++k)
                arrays[i][k] += static_cast<float>(k);
            RunWith(WhiteNoise(3000), UsualValues(Described()), arrays);
        }
}

TEST_P(AllOperationsTest, EndsAtEachReportOfItsProgress) {
    const Samples sound = WhiteNoise(30000);
    VectorBlock whole(sound);
    Percents counted;
    Run(Which(), whole, UsualValues(Described()), UsualArrays(Described()), counted);
    const int step = std::max(1, counted.Reports() / 20);
    for (int report = 0; report < counted.Reports(); report += step) {
        VectorBlock block(sound);
        Percents progress;
        progress.AbortAt = report;
        EXPECT_THROW(
            Run(Which(), block, UsualValues(Described()), UsualArrays(Described()), progress),
            Aborted)
            << report;
        EXPECT_EQ(progress.Reports(), report + 1);
    }
}

// Between two reports nothing may take long, whatever the length: so many samples at most.
TEST_P(AllOperationsTest, ReportsOften) {
    VectorBlock block(WhiteNoise(1 << 20, 0.001));
    Percents progress;
    Run(Which(), block, UsualValues(Described()), UsualArrays(Described()), progress);
    EXPECT_GE(progress.Reports(), 8);
}

INSTANTIATE_TEST_SUITE_P(Operations, AllOperationsTest, testing::Range<std::size_t>(0, 33),
                         [](const auto& info) {
                             return std::string(OperationOf(static_cast<Id>(info.param)).Name);
                         });

class SmoothingTest : public TransformTest {
protected:
    void Smooth(bool start, bool end, std::int32_t milliseconds) {
        transform_.SetSmoothStart(start);
        transform_.SetSmoothEnd(end);
        transform_.SetSmoothTime(milliseconds);
    }
};

TEST_F(SmoothingTest, TheEndsOfARegionJoinWhatSurroundsIt) {
    Smooth(true, true, 10);
    const Samples out = Run(Id::Silence, Samples(44100, 10000));
    EXPECT_LE(10000 - out.front(), 30);
    EXPECT_LE(10000 - out.back(), 30);
    EXPECT_LE(LargestStep(out), 30);
    EXPECT_NEAR(out[220], 5000, 30);
    EXPECT_NEAR(out[out.size() - 221], 5000, 30);
    EXPECT_EQ(Peak(std::span(out).subspan(441, 44100 - 882)), 0);
}

TEST_F(SmoothingTest, EachEndHasItsSwitch) {
    const Samples sound(4410, 10000);
    for (const bool start : {false, true})
        for (const bool end : {false, true}) {
            Smooth(start, end, 10);
            const Samples out = Run(Id::Invert, sound);
            EXPECT_EQ(out.front() > 0, start);
            EXPECT_EQ(out.back() > 0, end);
            EXPECT_EQ(out[2205], -10000);
        }
    Smooth(true, true, -3);
    EXPECT_EQ(Run(Id::Invert, sound), Samples(4410, -10000));
}

TEST_F(SmoothingTest, LeavesAloneWhatHasEndsThatWereAskedFor) {
    Smooth(true, true, 10);
    EXPECT_EQ(Run(Id::Fade, Samples(4410, 10000), {0, 100}).front(), 0);
    EXPECT_EQ(Run(Id::Envelope, Samples(4410, 10000), {}, {{100, 0}}).back(), 0);
    Samples quiet(1000, 5);
    quiet.resize(2000, 9000);
    EXPECT_EQ(Run(Id::TrimStart, quiet, {-40, 0}), Samples(1000, 9000));
}

TEST_F(SmoothingTest, ReachesOverFramesOfTwoAndOverSoundsOfAnotherLength) {
    Smooth(true, true, 10);
    Samples frames;
    for (int i = 0; i < 4410; ++i)
        frames.insert(frames.end(), {8000, -4000});
    const Samples out = Run(Id::MixStereoChannels, frames, {0, 0, 0, 0});
    EXPECT_NEAR(out[440], 4000, 30);
    EXPECT_NEAR(out[441], -2000, 30);
    const Samples tone = Sine(200, 44100);
    for (const float rate : {30.0F, 250.0F}) {
        const Samples stretched = Run(Id::TimeStretch, tone, {rate});
        EXPECT_NEAR(stretched.front(), tone.front(), 100);
        EXPECT_NEAR(stretched.back(), tone.back(), 100);
    }
}

}  // namespace
}  // namespace mavrin2::kestrin
