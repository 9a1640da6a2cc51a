#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "control/view/level_scale.h"
#include "control/view/time_scale.h"
#include "platform/memory/fixed_fonts.h"

namespace mavrin2::tests {
namespace {

using view::Bytes;
using view::LevelScale;
using view::LevelScaleInput;
using view::TimeRange;
using view::TimeScale;
using view::TypeViewConstants;

TEST(FormatTimeTest, WritesMinutesInLongDocuments) {
    struct {
        double Seconds;
        int Decimals;
        bool Long;
        const char* Text;
    } const cases[] = {{61.25, 2, true, "1:01.25"},
                       {1.05, 2, true, "0:01.05"},
                       {1.05, 2, false, "1.05"},
                       {0, 4, true, "0:00.0000"},
                       {59.996, 2, true, "1:00.00"},
                       {3599.9999, 3, true, "60:00.000"},
                       {75, 0, true, "1:15."},
                       {2.5, 0, false, "2"},
                       {0.1234567, 7, false, "0.1234567"},
                       {0.12345678, 9, false, "0.1234568"}};
    for (const auto& c : cases)
        EXPECT_EQ(view::FormatTime(c.Seconds, c.Decimals, c.Long), c.Text);
}

// Of a font with digits 8 wide: five of them are 60 with the room around them.
std::string StepsOf(const TimeRange& range, std::int32_t waveWidth, int digitWidth = 8) {
    const auto font = platform::FixedFonts(digitWidth, 14).Load(platform::FontDescription());
    TimeScale scale;
    scale.Compute(range, *font, waveWidth);
    return std::to_string(scale.Step) + "/" + std::to_string(scale.Subdivisions) + " from " +
           std::to_string(scale.FirstLabel);
}

TEST(TimeScaleTest, ChoosesStepsThatLeaveRoom) {
    EXPECT_EQ(StepsOf({0, 44100, 1}, 360), "10000.000000/10 from 0.000000");
    EXPECT_EQ(StepsOf({0, 88200, 1}, 360), "12500.000000/5 from 0.000000");
    EXPECT_EQ(StepsOf({0, 20, 1}, 2000), "1.000000/1 from 0.000000") << "no tick between frames";
    EXPECT_EQ(StepsOf({1005, 1405, 1}, 600), "50.000000/5 from 1000.000000");
    EXPECT_EQ(StepsOf({0, 10, 1}, 600), "1.000000/1 from 0.000000");
    EXPECT_EQ(StepsOf({0, 10, 2}, 600), "2.500000/10 from 0.000000");
    EXPECT_EQ(StepsOf({0, 600, 2, true}, 1200), "100.000000/10 from 0.000000");
    EXPECT_EQ(StepsOf({0.25, 0.5, 2}, 1000), "0.025000/10 from 0.200000");
    EXPECT_EQ(StepsOf({0, 10, 1}, 600, 0), "1.000000/1 from 0.000000") << "a font without extent";
}

TEST(TimeScaleTest, WritesAsManyDecimalsAsItsStepHas) {
    TimeScale scale;
    for (const auto& [step, decimals] :
         {std::pair{50.0, 0}, {0.1, 1}, {0.05, 2}, {0.025, 3}, {0.0001, 4}, {0.00005, 5}}) {
        scale.Step = step;
        EXPECT_EQ(scale.Decimals(), decimals) << step;
    }
    scale.Range.Type = 1;
    EXPECT_EQ(scale.Label(1234.9), "1234");
    scale.Range = {0, 10, 2, true};
    scale.Step = 0.05;
    EXPECT_EQ(scale.Label(61.25), "1:01.25");
}

TEST(TimeScaleTest, TakesItsRangeFromTheView) {
    const auto range = [](std::int64_t start, std::int64_t end, std::int16_t type) {
        return view::TimeRangeOf(Bytes(start), Bytes(end), Bytes(400000), 2, 1000, type);
    };
    EXPECT_EQ(range(4000, 8000, 1).Start, 1000);
    EXPECT_EQ(range(4000, 8000, 2).End, 2);
    EXPECT_EQ(range(0, 0, 2).End, 10) << "nothing to show";
    EXPECT_TRUE(range(0, 1, 1).LongDocument);
    EXPECT_FALSE(view::TimeRangeOf({}, Bytes(4), Bytes(6000), 1, 1000, 2).LongDocument)
        << "three seconds are not";
}

TEST(LevelScaleTest, RoundsItsStep) {
    const auto font = platform::FixedFonts(6, 14).Load(platform::FontDescription());
    struct {
        LevelScaleInput Input;
        const char* Scale;
    } const cases[] = {
        {{TypeViewConstants::WAVEFORM, 1, 16, 44100, 100, 400, 1}, "35000: 4000/4"},
        {{TypeViewConstants::WAVEFORM, 1, 16, 44100, 50, 400, 1}, "17500: 2000/2"},
        {{TypeViewConstants::WAVEFORM, 1, 16, 44100, 100, 400, 2}, "35000: 5000/2"},
        {{TypeViewConstants::WAVEFORM, 1, 16, 44100, 1000, 400, 0}, "350000: 40000/4"},
        {{TypeViewConstants::WAVEFORM, 2, 16, 44100, 100, 400, 1}, "110: 10/5"},
        {{TypeViewConstants::WAVEFORM, 1, 8, 44100, 100, 400, 1}, "130: 10/5"},
        {{TypeViewConstants::WAVEFORM, 3, 8, 44100, 100, 400, 1}, "35000: 4000/4"},
        {{TypeViewConstants::WAVEFORM, 2, 16, 44100, 10, 400, 1}, "11: 1/1"},
        {{TypeViewConstants::WAVEFORM, 1, 8, 44100, 10, 60, 1}, "13: 10/5"},
        {{TypeViewConstants::EXPANDED, 1, 16, 44100, 100, 400, 1}, "35000: 4000/4"},
        {{TypeViewConstants::SPECTRAL, 1, 16, 44100, 100, 400, 1}, "22050: 2000/2"},
        {{TypeViewConstants::WAVEFORM, 1, 16, 44100, 100, 0, 1}, "35000: 30000/1"},
    };
    for (const auto& c : cases) {
        LevelScale scale;
        scale.Compute(c.Input, *font);
        EXPECT_EQ(std::to_string(scale.Maximum) + ": " + std::to_string(scale.Step) + "/" +
                      std::to_string(scale.Subdivisions),
                  c.Scale);
    }
}

TEST(LevelScaleTest, LabelsItsValues) {
    const LevelScale scale;
    EXPECT_EQ(scale.Label(12000, false), "12000");
    EXPECT_EQ(scale.Label(0, true), "-90");
    EXPECT_EQ(scale.Label(16384, true), "-6");
    EXPECT_EQ(view::FullScaleValue(1, 16), 32768);
    EXPECT_EQ(view::FullScaleValue(1, 8), 125);
    EXPECT_EQ(view::FullScaleValue(3, 8), 32768);
    EXPECT_EQ(view::FullScaleValue(2, 8), 100);
}

}  // namespace
}  // namespace mavrin2::tests
