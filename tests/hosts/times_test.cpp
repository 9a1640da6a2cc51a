#include "hosts/script/commands/times.h"

#include <gtest/gtest.h>

namespace mavrin2::script {
namespace {

TEST(TimeText, ReadsSecondsMinutesHoursAndFrames) {
    const std::pair<const char*, std::int64_t> good[] = {{"0", 0},
                                                         {"1.5", 66150},
                                                         {"90", 3969000},
                                                         {"1:30.25", 3980025},
                                                         {".5", 22050},
                                                         {"2.", 88200},
                                                         {"0:01.5", 66150},
                                                         {"66150f", 66150},
                                                         {"0f", 0},
                                                         {"1:02:03.5", 164206350},
                                                         {"120:00", 317520000},
                                                         {"0.00001", 0},
                                                         {"0.00002", 1},
                                                         {"001", 44100}};
    for (const auto& [text, frames] : good) {
        const auto time = TimePoint::Parse(text);
        ASSERT_TRUE(time) << text;
        EXPECT_EQ(time->Frames(44100), frames) << text;
    }
    for (const char* text : {"",
                             ".",
                             "f",
                             ":",
                             "1:",
                             ":1",
                             "-1",
                             "+1",
                             "1e3",
                             "0x10",
                             "nan",
                             "inf",
                             "1.5f",
                             "1:75",
                             "1:60",
                             "1:60:00",
                             "1.5:00",
                             "1:2:3:4",
                             "1:30f",
                             "1..5",
                             "1.2.3",
                             " 1",
                             "1 ",
                             "1,5",
                             "1s",
                             "9999999999999999",
                             "9999999999999999f"})
        EXPECT_FALSE(TimePoint::Parse(text)) << text;
}

TEST(TimeText, WritesDurations) {
    const std::tuple<std::int64_t, int, const char*> cases[] = {
        {0, 44100, "0:00:00.000"},
        {66150, 44100, "0:00:01.500"},
        {22, 44100, "0:00:00.000"},
        {23, 44100, "0:00:00.001"},
        {44099, 44100, "0:00:01.000"},
        {8000LL * 3723, 8000, "1:02:03.000"},
        {8000LL * 360000, 8000, "100:00:00.000"},
        {5, 0, "0:00:00.000"}};
    for (const auto& [frames, rate, text] : cases)
        EXPECT_EQ(DurationText(frames, rate), text);
}

}  // namespace
}  // namespace mavrin2::script
