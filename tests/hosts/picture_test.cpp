// Pictures that the command line asks for.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "hosts/script/picture/caption.h"
#include "tests/hosts/program.h"

namespace mavrin2::tests {
namespace {

using testing::StartsWith;
using Arguments = std::vector<std::string>;

struct Image {
    std::pair<std::uint32_t, std::uint32_t> Size;  // width and height
    std::vector<std::uint32_t> Pixels;             // 0xAARRGGBB

    std::span<const std::uint32_t> Rows(std::size_t first, std::size_t count) const {
        return std::span(Pixels).subspan(first * Size.first, count * Size.first);
    }
    bool operator==(const Image&) const = default;
};

class Pictures : public testing::Test {
protected:
    Image ImageIn(const std::string& name) const {
        const std::string bytes = host_.Read(name).value_or("");
        png_image png = {};
        png.version = PNG_IMAGE_VERSION;
        EXPECT_TRUE(png_image_begin_read_from_memory(&png, bytes.data(), bytes.size()));
        png.format = PNG_FORMAT_BGRA;
        Image image{{png.width, png.height}, std::vector<std::uint32_t>(PNG_IMAGE_SIZE(png) / 4)};
        EXPECT_TRUE(png_image_finish_read(&png, nullptr, image.Pixels.data(), 0, nullptr));
        return image;
    }
    Image Drawn(const Arguments& arguments) const {
        Arguments line{"picture"};
        line.insert(line.end(), arguments.begin(), arguments.end());
        line.insert(line.begin() + 2, "drawn.png");
        Program program(line, host_.In());
        EXPECT_EQ(program.Finish(), 0) << program.Err;
        return ImageIn("drawn.png");
    }

    HostEnvironment host_;
};

TEST_F(Pictures, ShowWhatOptionsSay) {
    std::vector<Image> seen;
    for (const Arguments& options :
         std::initializer_list<Arguments>{{"--axis", "samples"},
                                          {},
                                          {"--axis", "none"},
                                          {"--level", "decibels"},
                                          {"--text", "12"},
                                          {"--color", "background=white", "--color=grid=#888"},
                                          {"--channels", "sum"},
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
        const Image picture = ImageIn("out.PNG");
        EXPECT_EQ(picture.Size, (std::pair{301u, 97u}));
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
    EXPECT_EQ(ImageIn("script.png"), seen.front());
    EXPECT_EQ(Drawn({MAVRIN2_TEST_SOUND}).Size, (std::pair{1200u, 300u}));
    host_.Write("piped.png", "");
    auto piped = host_.In();
    piped.Output = host_.Path("piped.png").string();
    Program program({"picture", MAVRIN2_TEST_SOUND, "-"}, piped);
    EXPECT_EQ(program.Finish(), 0) << program.Err;
    EXPECT_EQ(ImageIn("piped.png"), Drawn({MAVRIN2_TEST_SOUND}));
    EXPECT_EQ(Drawn({MAVRIN2_TEST_SOUND, "--size", "HD", "--range", "0.1-0.2"}),
              Drawn({MAVRIN2_TEST_SOUND, "--size=1280x720", "--start=0.1", "--end=8820f"}))
        << "not the same range";
}

TEST_F(Pictures, RefuseWhatMakesNoSense) {
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
        {{"--size", "hd", "--size", "4k"}, 2, "--size is given twice"},
        {{"--color", "sky=blue"}, 2, "unknown part 'sky' for --color; try background, wave"},
        {{"--color", "wave=#12345"}, 2, "unknown color '#12345' for --color"},
        {{"--color", "wave=red,wave=blue"}, 2, "two colors for 'wave'"},
        {{"--color", "wave=transparent"}, 2, "'wave' cannot be transparent"},
        {{"--text", "-8"}, 2, "invalid value '-8' for --text; try 12 (points, 4 to 72)"},
        {{"--range", "1-2", "--end", "2"}, 2, "--range says what --start and --end do"},
        {{"--range", "1-9:00"}, 1, MAVRIN2_TEST_SOUND ": --range is past the end"},
        {{MAVRIN2_TEST_SOUND, "new.png", "--size", "99x79"}, 2, "3 files have no room"},
        {{"--view", "nice"}, 2, "unknown value 'nice' for --view; try waveform, spectral\n"},
        {{"--channels", "3"}, 2, "unknown value '3' for --channels; try both, left, right, sum\n"},
        {{"--selection", "1"}, 2, "invalid range '1' for --selection; try 1:30-2:15.5"},
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
    host_.WriteWave("empty.wav", 44100, 2, 0);
    Program empty({"picture", "empty.wav", "old.png"}, host_.In());
    EXPECT_EQ(empty.Finish(), 1);
    EXPECT_EQ(empty.Err, "mavrin2: empty.wav: there is no sound in it\n");
    Program same({"picture", MAVRIN2_TEST_SOUND, "old.png", "./old.png"}, host_.In());
    EXPECT_EQ(same.Finish(), 1);
    EXPECT_EQ(same.Err, "mavrin2: ./old.png: input and output are the same file\n");
    auto full = host_.In();
    full.LongestFile = 1000;
    host_.WriteWave("short.wav", 8000, 1, 100);
    Program cut({"picture", "short.wav", "old.png"}, full);
    EXPECT_EQ(cut.Finish(), 1);
    EXPECT_EQ(cut.Err, "mavrin2: old.png: File too large\n");
    EXPECT_EQ(host_.Read("old.png"), "older");
    Program other({"picture", "a.wav", "b.jpg"}, host_.In());
    EXPECT_EQ(other.Finish(), 2);
    EXPECT_THAT(other.Err, StartsWith("mavrin2: b.jpg: pictures are PNG files; try a name"));
}

TEST_F(Pictures, OfSeveralFilesAreBelowEachOther) {
    host_.WriteWave("a.wav", 8000, 1, 5000);
    host_.WriteWave("b.wav", 8000, 1, 3000);
    const auto strip = [&](const std::string& upper, const std::string& lower) {
        Program program({"picture", upper, lower, "strip.png", "--size", "400x240"}, host_.In());
        EXPECT_EQ(program.Finish(), 0) << program.Err;
        return ImageIn("strip.png");
    };
    const Image ab = strip("a.wav", "b.wav");
    const Image ba = strip("b.wav", "a.wav");
    EXPECT_TRUE(std::ranges::equal(ab.Rows(0, 120), ba.Rows(120, 120)));
    EXPECT_TRUE(std::ranges::equal(ab.Rows(120, 120), ba.Rows(0, 120)));
    // Below its name each is the picture of the file alone.
    const int name = script::Caption(8).Height();
    const Image alone = Drawn({"a.wav", "--size", "400x" + std::to_string(120 - name)});
    EXPECT_TRUE(std::ranges::equal(ab.Rows(static_cast<std::size_t>(name), alone.Size.second),
                                   alone.Pixels));
}

TEST_F(Pictures, KeepTheirColorsBesideWhatIsTransparent) {
    host_.WriteWave("a.wav", 8000, 1, 30000);
    const Arguments common{"a.wav", "--size=300x2000", "--axis=none", "--color"};
    const auto with = [&](const std::string& colors) {
        Arguments line = common;
        line.push_back(colors);
        return Drawn(line);
    };
    const Image clear = with("background=transparent,wave=#123456,axis=white");
    const Image opaque = with("background=#fedcba,wave=#123456,axis=white");
    EXPECT_THAT(clear.Pixels, testing::Contains(0u));
    ASSERT_EQ(clear.Size, opaque.Size);
    const std::size_t width = clear.Size.first;
    for (std::size_t i = 2 * width; i < clear.Pixels.size() - 2 * width; ++i) {
        const bool border = i % width < 2 || i % width >= width - 2;
        const std::uint32_t expected = opaque.Pixels[i] == 0xFFFEDCBA ? 0u : opaque.Pixels[i];
        ASSERT_EQ(clear.Pixels[i], border ? clear.Pixels[i] : expected) << i;
    }
}

}  // namespace
}  // namespace mavrin2::tests
