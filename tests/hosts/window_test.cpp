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
    Program::Settings In() const {
        auto settings = host_.In();
        settings.Environment["MAVRIN2_REGISTRY"] = MAVRIN2_REGISTRY;
        return settings;
    }
    std::string Path(const std::string& name) const { return host_.Path(name).string(); }

    HostEnvironment host_;
};

TEST_F(HostWindows, ShowAControlThatKnowsThemAsContainersOnly) {
    Program program({"run", MAVRIN2_TEST_SCRIPTS "/window.lua", MAVRIN2_TEST_SOUND, Path("")},
                    In());
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
        Program program(line, In());
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
    Program script({"run", "script.lua", MAVRIN2_TEST_SOUND}, In());
    EXPECT_EQ(script.Finish(), 0);
    EXPECT_EQ(host_.Read("script.png"), seen.front());
    Program plain({"picture", MAVRIN2_TEST_SOUND, "plain.png"}, In());
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
        {{"--size", "100"}, 2, "--size 100: not a size"},
        {{"--size", "0x100"}, 2, "--size 0x100: not a size"},
        {{"--size", "100x-1"}, 2, "--size 100x-1: not a size"},
        {{"--size", "100x32768"}, 2, "--size 100x32768: not a size"},
        {{"--size", "32767x32767"}, 2, "--size 32767x32767: not a size"},
        {{"--size", "x"}, 2, "--size x: not a size"},
        {{"--size", ""}, 2, "--size : not a size"},
        {{"--size", "99999999999x1"}, 2, "--size 99999999999x1: not a size"},
        {{"--view", "nice"}, 2, "--view nice: there are waveform, spectral\n"},
        {{"--channels", "3"}, 2, "--channels 3: there are both, left, right\n"},
        {{"--selection", "1"}, 2, "--selection 1: not two times"},
        {{"--selection", "1-x"}, 2, "--selection x: not a time"},
        {{"--start", "x"}, 2, "--start x: not a time"},
        {{"--selection", "5f-5f"}, 1, MAVRIN2_TEST_SOUND ": Nothing lies in --selection\n"},
        {{"--selection", "0-1:00:00"}, 1, MAVRIN2_TEST_SOUND ": --selection lies behind its end"},
        {{"--end", "1:00:00"}, 1, MAVRIN2_TEST_SOUND ": --end lies behind its end"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(testing::PrintToString(one.Options));
        Arguments line{"picture", MAVRIN2_TEST_SOUND, "old.png"};
        line.insert(line.end(), one.Options.begin(), one.Options.end());
        Program program(line, In());
        EXPECT_EQ(program.Finish(), one.Code);
        EXPECT_THAT(program.Err, StartsWith("mavrin2: " + std::string(one.Err)));
        EXPECT_EQ(host_.Read("old.png"), "older");
    }
    for (const auto& [line, err] : std::initializer_list<std::pair<Arguments, const char*>>{
             {{"picture", "a.wav"}, "picture needs two files"},
             {{"picture", "a.wav", "b.jpg"}, "b.jpg: pictures are written to .png files"},
             {{"picture", "a.wav", "png"}, "png: pictures are written to .png files"}}) {
        Program program(line, In());
        EXPECT_EQ(program.Finish(), 2);
        EXPECT_THAT(program.Err, StartsWith("mavrin2: " + std::string(err)));
    }
}

}  // namespace
}  // namespace mavrin2::tests
