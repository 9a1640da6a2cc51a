#include "companions/dusoro/sound/format_converter.h"
#include "tests/companions/sound_test.h"

namespace mavrin2::dusoro {
namespace {

struct RoundTrip {
    const char* Name;
    std::int32_t Rate;      // of the document
    std::int32_t FileRate;  // expected
};

class RoundTripTest : public SoundTest, public testing::WithParamInterface<RoundTrip> {};

// The length stated before decoding is the length read, and that of what was saved.
TEST_P(RoundTripTest, IsExactToTheSampleForEveryLength) {
    const auto [name, rate, fileRate] = GetParam();
    for (const int channels : {1, 2}) {
        for (const std::size_t frames : {1, 2, 575, 1152, 4096, 44'117, 100'000}) {
            const Samples noise = Noise(frames * static_cast<std::size_t>(channels), 3000);
            ASSERT_TRUE(Save(In(name), {rate, channels}, noise));
            const auto reader = Open(In(name));
            ASSERT_TRUE(reader);
            const std::int64_t expected =
                FramesAtRate(static_cast<std::int64_t>(frames), rate, fileRate);
            EXPECT_EQ(reader->Description().Delivered, (PcmFormat{fileRate, channels}));
            EXPECT_EQ(reader->Description().Frames, expected) << frames;
            EXPECT_EQ(ReadAll(*reader, 1000).size(), static_cast<std::size_t>(expected * channels))
                << frames;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, RoundTripTest,
    testing::Values(RoundTrip{"a.wav", 44100, 44100}, RoundTrip{"a.aiff", 44100, 44100},
                    RoundTrip{"a.flac", 44100, 44100}, RoundTrip{"a.ogg", 44100, 44100},
                    RoundTrip{"a.ogg", 11025, 11025}, RoundTrip{"a.opus", 48000, 48000},
                    RoundTrip{"a.opus", 44100, 48000}, RoundTrip{"a.mp3", 44100, 44100},
                    RoundTrip{"a.mp3", 22050, 22050}, RoundTrip{"a.mp3", 8000, 8000},
                    RoundTrip{"a.mp3", 96000, 48000}));

class LengthTest : public SoundTest {};

constexpr PcmFormat kStereo{44100, 2};

TEST_F(LengthTest, CountsTheFramesOfAnMp3WithoutATag) {
    ASSERT_TRUE(Save(In("a.mp3"), kStereo, Noise(100'000, 3000)));
    // The tag is in a separate frame at the beginning, of 626 bytes at 192 kbit/s.
    const std::string bytes = ReadBytes(In("a.mp3"));
    ASSERT_NE(bytes.substr(0, 626).find("Info"), std::string::npos);
    WriteBytes(In("b.mp3"), "ID3\x04" + std::string(5, '\0') + "\x14" + std::string(20, '\0') +
                                bytes.substr(626));
    const auto reader = Open(In("b.mp3"));
    ASSERT_TRUE(reader);
    EXPECT_EQ(reader->Description().Frames % 1152, 0);
    EXPECT_GE(reader->Description().Frames, 50'000);
    EXPECT_EQ(static_cast<std::int64_t>(ReadAll(*reader).size() / 2), reader->Description().Frames);
}

TEST_F(LengthTest, ReadsAllOfFilesThatWereJoined) {
    const Samples noise = Noise(100'000, 3000);
    for (const char* name : {"a.mp3", "a.ogg"}) {
        ASSERT_TRUE(Save(In(name), kStereo, noise));
        const std::string once = ReadBytes(In(name));
        WriteBytes(In(std::string("joined ") + name), once + once);
        const auto reader = Open(In(std::string("joined ") + name));
        ASSERT_TRUE(reader);
        const auto stated = reader->Description().Frames;
        const auto read = static_cast<std::int64_t>(ReadAll(*reader).size() / 2);
        EXPECT_GE(read, 100'000) << name;
        EXPECT_NEAR(static_cast<double>(stated), static_cast<double>(read), 3000) << name;
    }
}

TEST_F(LengthTest, GuessesTheLengthOfAFlacThatWasNeverCompleted) {
    ASSERT_TRUE(Save(In("a.flac"), kStereo, Noise(100'000, 3000)));
    std::string bytes = ReadBytes(In("a.flac"));
    bytes[21] &= '\xF0';
    bytes.replace(22, 4, 4, '\0');
    WriteBytes(In("a.flac"), bytes);
    const auto reader = Open(In("a.flac"));
    ASSERT_TRUE(reader);
    EXPECT_GT(reader->Description().Frames, 25'000);
    EXPECT_LT(reader->Description().Frames, 100'000);
    EXPECT_EQ(ReadAll(*reader).size(), 100'000U);
}

TEST_F(LengthTest, AnEmptyDocumentCanBeSavedAndOpenedAgain) {
    for (const char* name : {"a.wav", "a.aiff", "a.flac", "a.ogg", "a.opus", "a.mp3", "a.vox"}) {
        ASSERT_TRUE(Save(In(name), kStereo, {})) << name;
        // Where a kind cannot be empty, it holds an instant of silence.
        const Samples read = ReadAll(In(name));
        EXPECT_LE(read.size(), 2U) << name;
    }
}

}  // namespace
}  // namespace mavrin2::dusoro
