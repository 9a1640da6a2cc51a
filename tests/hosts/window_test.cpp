// The real control in the program's windows, and its pictures.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

#include "tests/hosts/program.h"

namespace mavrin2::tests {
namespace {

using testing::StartsWith;
using Arguments = std::vector<std::string>;

class HostWindows : public testing::Test {
protected:
    std::string Path(const std::string& name) const { return host_.Path(name).string(); }

    HostEnvironment host_;
};

TEST_F(HostWindows, ShowAControlThatKnowsThemAsContainersOnly) {
    Program program({"run", MAVRIN2_TEST_SCRIPTS "/window.lua", MAVRIN2_TEST_SOUND, Path("")},
                    host_.In());
    EXPECT_EQ(program.Finish(), 0);
    EXPECT_EQ(program.Out, "held\n");
    EXPECT_EQ(program.Err, "");
}

TEST_F(HostWindows, ShowNothingButControls) {
    host_.Write("script.lua", "mavrin2.window(mavrin2.create('MavrinTest.Thing'), 10, 10)");
    Program program({"run", "script.lua"}, host_.In());
    EXPECT_EQ(program.Finish(), 1);
    EXPECT_THAT(program.Err, StartsWith("mavrin2: The object cannot be shown in a window."));
}

// The width and height that a PNG file begins with.
std::pair<std::uint32_t, std::uint32_t> SizeOf(const std::string& png) {
    const auto number = [&](std::size_t at) {
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < 4; ++i)
            value = value << 8 | static_cast<std::uint8_t>(png.at(at + i));
        return value;
    };
    EXPECT_THAT(png, StartsWith("\x89PNG\r\n"));
    return {number(16), number(20)};
}

TEST_F(HostWindows, ArePicturesOnTheCommandLine) {
    std::vector<std::string> seen;
    for (const Arguments& options :
         std::initializer_list<Arguments>{{},
                                          {"--view", "spectral"},
                                          {"--channels", "right"},
                                          {"--start", "0.1", "--end", "0.2"},
                                          {"--start=100f", "--end=110f", "--view=waveform"},
                                          {"--selection", "0.1-0:00.3"},
                                          {"--channels=left", "--selection", "0-1000f"}}) {
        SCOPED_TRACE(testing::PrintToString(options));
        Arguments line{"picture", MAVRIN2_TEST_SOUND, "out.PNG", "--size", "301x97"};
        line.insert(line.end(), options.begin(), options.end());
        Program program(line, host_.In());
        EXPECT_EQ(program.Finish(), 0);
        EXPECT_EQ(program.Out + program.Err, "");
        const auto picture = host_.Read("out.PNG").value_or("");
        EXPECT_EQ(SizeOf(picture), (std::pair{301u, 97u}));
        EXPECT_THAT(seen, testing::Not(testing::Contains(picture))) << "the option has no effect";
        seen.push_back(picture);
    }
    // As a script's window has it.
    host_.Write("script.lua",
                "local editor = mavrin2.create()\n"
                "local win = mavrin2.window(editor, 301, 97)\n"
                "editor:Open(arg[1])\n"
                "win:save('script.png')\n");
    Program script({"run", "script.lua", MAVRIN2_TEST_SOUND}, host_.In());
    EXPECT_EQ(script.Finish(), 0);
    EXPECT_EQ(host_.Read("script.png"), seen.front());
    Program plain({"picture", MAVRIN2_TEST_SOUND, "plain.png"}, host_.In());
    EXPECT_EQ(plain.Finish(), 0);
    EXPECT_EQ(SizeOf(host_.Read("plain.png").value_or("")), (std::pair{1200u, 300u}));
}

TEST_F(HostWindows, RefuseWhatMakesNoSense) {
    host_.Write("old.png", "older");
    struct {
        Arguments Options;
        int Code;
        const char* Err;
    } const cases[] = {
        {{"--size", "100"}, 2, "invalid size '100'; try 1200x300"},
        {{"--size", "0x100"}, 2, "invalid size '0x100'"},
        {{"--size", "100x32768"}, 2, "invalid size '100x32768'"},
        {{"--size", "32767x32767"}, 2, "invalid size '32767x32767'"},
        {{"--size", "99999999999x1"}, 2, "invalid size '99999999999x1'"},
        {{"--view", "nice"}, 2, "unknown value 'nice' for --view; try waveform, spectral\n"},
        {{"--channels", "3"}, 2, "unknown value '3' for --channels; try both, left, right\n"},
        {{"--selection", "1"}, 2, "invalid range '1' for --selection; try 1.5-2.25"},
        {{"--selection", "1-x"}, 2, "invalid time 'x' for --selection"},
        {{"--selection", "5f-5f"}, 1, MAVRIN2_TEST_SOUND ": --selection is empty\n"},
        {{"--end", "1:00:00"}, 1, MAVRIN2_TEST_SOUND ": --end is past the end"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(testing::PrintToString(one.Options));
        Arguments line{"picture", MAVRIN2_TEST_SOUND, "old.png"};
        line.insert(line.end(), one.Options.begin(), one.Options.end());
        Program program(line, host_.In());
        EXPECT_EQ(program.Finish(), one.Code);
        EXPECT_THAT(program.Err, StartsWith("mavrin2: " + std::string(one.Err)));
        EXPECT_EQ(host_.Read("old.png"), "older");
    }
    Program other({"picture", "a.wav", "b.jpg"}, host_.In());
    EXPECT_EQ(other.Finish(), 2);
    EXPECT_THAT(other.Err, StartsWith("mavrin2: b.jpg: pictures are PNG files; try a name"));
}

}  // namespace
}  // namespace mavrin2::tests
