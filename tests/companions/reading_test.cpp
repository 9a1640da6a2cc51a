#include <cmath>
#include <limits>
#include <numbers>

#include "platform/memory/memory_file_system.h"
#include "tests/companions/sound_test.h"

namespace mavrin2::dusoro {
namespace {

class ReadingTest : public SoundTest {};

struct KeptFormat {
    const char* Name;
    int Format;
    bool Pcm;
};

class SixteenBitTest : public SoundTest, public testing::WithParamInterface<KeptFormat> {};

TEST_P(SixteenBitTest, ArrivesBitIdenticalInMonoAndStereo) {
    for (const int channels : {1, 2}) {
        const Samples noise = Noise(10'000);
        const auto path = In(GetParam().Name);
        Make(path, GetParam().Format, 22050, channels, noise);
        const auto reader = Open(path);
        ASSERT_TRUE(reader);
        const SourceDescription& source = reader->Description();
        EXPECT_EQ(source.SourceRate, 22050);
        EXPECT_EQ(source.Delivered, (PcmFormat{22050, channels}));
        EXPECT_EQ(source.Frames, 10'000 / channels);
        EXPECT_EQ(source.BitsPerSample, 16);
        EXPECT_EQ(source.PlainPcm, GetParam().Pcm);
        EXPECT_EQ(source.Text, std::string(GetParam().Pcm ? "PCM" : "FLAC") +
                                   " 22050 Hz; 16 bit; " + (channels == 1 ? "mono" : "stereo"));
        EXPECT_EQ(ReadAll(*reader, 777), noise);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Containers, SixteenBitTest,
    testing::Values(KeptFormat{"a.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, true},
                    KeptFormat{"b.wav", SF_FORMAT_WAVEX | SF_FORMAT_PCM_16, true},
                    KeptFormat{"c.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16 | SF_ENDIAN_BIG, true},
                    KeptFormat{"d.wav", SF_FORMAT_RF64 | SF_FORMAT_PCM_16, true},
                    KeptFormat{"e.w64", SF_FORMAT_W64 | SF_FORMAT_PCM_16, true},
                    KeptFormat{"f.aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_16, true},
                    KeptFormat{"g.au", SF_FORMAT_AU | SF_FORMAT_PCM_16, true},
                    KeptFormat{"h.caf", SF_FORMAT_CAF | SF_FORMAT_PCM_16, true},
                    KeptFormat{"i.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16, false}));

TEST_F(ReadingTest, RoundsWiderIntegersToTheNearestAndLimits) {
    // In steps of the 24-bit sample: ties go to the even neighbour.
    const std::vector<std::pair<std::int32_t, std::int16_t>> cases = {
        {0, 0},         {127, 0},          {128, 0},          {129, 1},          {384, 2},
        {383, 1},       {-127, 0},         {-128, 0},         {-129, -1},        {-384, -2},
        {256 * 77, 77}, {-256, -1},        {0x7FFF7F, 32767}, {0x7FFFFF, 32767}, {0x7FFF80, 32767},
        {640, 2},       {-8388608, -32768}};
    std::vector<std::int32_t> values;
    Samples expected;
    for (const auto& [value, sample] : cases) {
        values.push_back(value * 256);
        expected.push_back(sample);
    }
    Make(In("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_24, 8000, 1, values);
    Make(In("b.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_24, 8000, 1, values);
    Make(In("c.aiff"), SF_FORMAT_AIFF | SF_FORMAT_PCM_24, 8000, 1, values);
    Make(In("d.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_32, 8000, 1, values);
    for (const char* name : {"a.wav", "b.flac", "c.aiff", "d.wav"})
        EXPECT_EQ(ReadAll(In(name)), expected) << name;
    EXPECT_EQ(Open(In("a.wav"))->Description().Text, "PCM 8000 Hz; 24 bit; mono");
    EXPECT_EQ(Open(In("d.wav"))->Description().BitsPerSample, 32);

    // One step of 32 bits decides a tie.
    Make(In("e.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_32, 8000, 1,
         std::vector<std::int32_t>{32768, 32769, -32768, -32769, INT32_MAX, INT32_MIN});
    EXPECT_EQ(ReadAll(In("e.wav")), (Samples{0, 1, 0, -1, 32767, -32768}));
}

TEST_F(ReadingTest, RoundsFloatingPointAndLimitsWhatIsTooLoud) {
    const double step = 1.0 / 32768;
    const std::vector<double> values = {0.0,
                                        0.5 * step,
                                        0.51 * step,
                                        1.5 * step,
                                        2.5 * step,
                                        -0.5 * step,
                                        -1.5 * step,
                                        100 * step,
                                        1.0,
                                        -1.0,
                                        1.5,
                                        -7.0,
                                        1e30,
                                        -1e30,
                                        32766.4 * step,
                                        std::numeric_limits<double>::quiet_NaN(),
                                        std::numeric_limits<double>::infinity(),
                                        -std::numeric_limits<double>::infinity()};
    const Samples expected = {0,      0,     1,      2,     2,      0,     -2, 100,   32767,
                              -32768, 32767, -32768, 32767, -32768, 32766, 0,  32767, -32768};
    Make(In("a.wav"), SF_FORMAT_WAV | SF_FORMAT_DOUBLE, 8000, 1, values);
    Make(In("b.wav"), SF_FORMAT_WAV | SF_FORMAT_FLOAT, 8000, 1,
         std::vector<float>(values.begin(), values.end()));
    Make(In("c.au"), SF_FORMAT_AU | SF_FORMAT_FLOAT, 8000, 1,
         std::vector<float>(values.begin(), values.end()));
    for (const char* name : {"a.wav", "b.wav", "c.au"}) {
        EXPECT_EQ(ReadAll(In(name)), expected) << name;
        EXPECT_FALSE(Open(In(name))->Description().PlainPcm) << name;
    }
    EXPECT_EQ(Open(In("b.wav"))->Description().Text, "Float 8000 Hz; 32 bit; mono");
}

TEST_F(ReadingTest, SpreadsEightBitsOverTheWholeRange) {
    Samples all;
    for (int b = 0; b < 256; ++b)
        all.push_back(static_cast<std::int16_t>((b - 128) * 256));
    Make(In("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 8000, 1, all);
    Make(In("b.aiff"), SF_FORMAT_AIFF | SF_FORMAT_PCM_S8, 8000, 1, all);
    const std::string bytes = ReadBytes(In("a.wav"));
    EXPECT_EQ(bytes[44], '\0');  // what the loop above calls b
    EXPECT_EQ(bytes[44 + 255], '\xFF');
    EXPECT_EQ(ReadAll(In("a.wav")), all);
    EXPECT_EQ(ReadAll(In("b.aiff")), all);
    EXPECT_EQ(Open(In("a.wav"))->Description().BitsPerSample, 8);
    EXPECT_TRUE(Open(In("a.wav"))->Description().PlainPcm);
}

TEST_F(ReadingTest, ReadsCompressedWavKinds) {
    const std::vector<std::pair<int, const char*>> kinds = {
        {SF_FORMAT_ALAW, "A-law 8000 Hz; 8 bit; mono"},
        {SF_FORMAT_ULAW, "u-law 8000 Hz; 8 bit; mono"},
        {SF_FORMAT_IMA_ADPCM, "IMA ADPCM 8000 Hz; 4 bit; mono"},
        {SF_FORMAT_MS_ADPCM, "MS ADPCM 8000 Hz; 4 bit; mono"},
        {SF_FORMAT_GSM610, "GSM 6.10 8000 Hz; mono"}};
    Samples tone;
    for (int i = 0; i < 3200; ++i)
        tone.push_back(static_cast<std::int16_t>(8000 * std::sin(i * 0.3)));
    for (const auto& [kind, text] : kinds) {
        Make(In("a.wav"), SF_FORMAT_WAV | kind, 8000, 1, tone);
        const auto reader = Open(In("a.wav"));
        ASSERT_TRUE(reader);
        EXPECT_EQ(reader->Description().Text, text);
        EXPECT_FALSE(reader->Description().PlainPcm);
        EXPECT_EQ(reader->Description().BitsPerSample, 16);
        const Samples read = ReadAll(*reader);
        ASSERT_GE(read.size(), tone.size()) << text;
        double error = 0;
        for (std::size_t i = 0; i < tone.size(); ++i)
            error += std::abs(static_cast<double>(read[i] - tone[i])) / 3200;
        EXPECT_LT(error, 1500) << text;
    }
}

TEST_F(ReadingTest, PlacesEverySpeakerOfASurroundFile) {
    // Left, right, centre, low frequency, rear left and rear right, each alone in its own frame.
    constexpr int kLevel = 10'000;
    Samples frames(std::size_t{6} * 8, 0);
    for (std::size_t i = 0; i < 6; ++i)
        frames[i * 6 + i] = kLevel;
    // Scaled down by 1 + 0.7071 + 0.7071.
    const Samples expected = {4142, 0, 0, 4142, 2929, 2929, 0, 0, 2929, 0, 0, 2929, 0, 0, 0, 0};
    Make(In("map.wav"), SF_FORMAT_WAVEX | SF_FORMAT_PCM_16, 48000, 6, frames,
         {SF_CHANNEL_MAP_LEFT, SF_CHANNEL_MAP_RIGHT, SF_CHANNEL_MAP_CENTER, SF_CHANNEL_MAP_LFE,
          SF_CHANNEL_MAP_REAR_LEFT, SF_CHANNEL_MAP_REAR_RIGHT});
    Make(In("usual.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 48000, 6, frames);
    for (const char* name : {"map.wav", "usual.flac"}) {
        const auto reader = Open(In(name));
        ASSERT_TRUE(reader);
        EXPECT_EQ(reader->Description().Delivered.Channels, 2);
        EXPECT_NE(reader->Description().Text.find("6 channels"), std::string::npos);
        EXPECT_EQ(ReadAll(*reader), expected) << name;
    }
    // The file's own order counts where it states one: quadraphonic with a rear centre.
    Make(In("map.wav"), SF_FORMAT_WAVEX | SF_FORMAT_PCM_16, 48000, 4,
         Samples{0, 0, 10'000, 0, 0, 0, 0, 10'000},
         {SF_CHANNEL_MAP_LEFT, SF_CHANNEL_MAP_RIGHT, SF_CHANNEL_MAP_CENTER,
          SF_CHANNEL_MAP_REAR_CENTER});
    EXPECT_EQ(ReadAll(In("map.wav")), (Samples{3204, 3204, 2265, 2265}));
    // Another library, the same sum: 1000 … 6000 in the six channels.
    const Samples mixed = ReadAll(Data("surround.mka"));
    ASSERT_EQ(mixed.size(), 128U);
    EXPECT_EQ(mixed[100], std::lround((1000 + 0.70710678 * (3000 + 5000)) / 2.41421356));
    EXPECT_EQ(mixed[101], std::lround((2000 + 0.70710678 * (3000 + 6000)) / 2.41421356));
}

TEST_F(ReadingTest, MixesChannelsAtFullScaleToFullScale) {
    Samples frames(std::size_t{6} * 2, 32767);
    for (std::size_t i = 6; i < 12; ++i)
        frames[i] = -32768;
    Make(In("a.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 48000, 6, frames);
    EXPECT_EQ(ReadAll(In("a.flac")), (Samples{32767, 32767, -32768, -32768}));
}

struct ForeignFile {
    const char* Name;
    const char* Text;
    std::int64_t Least, Most;  // sample frames delivered
};

class ForeignFileTest : public SoundTest, public testing::WithParamInterface<ForeignFile> {};

// A quarter of a second of a sine of 440 Hz.
TEST_P(ForeignFileTest, IsReadWithItsPropertiesAndItsSound) {
    const auto reader = Open(Data(GetParam().Name));
    ASSERT_TRUE(reader);
    EXPECT_EQ(reader->Description().Text, GetParam().Text);
    const std::int32_t rate = reader->Description().Delivered.Rate;
    const Samples read = ReadAll(*reader);
    const auto frames = static_cast<std::int64_t>(read.size() / 2);
    EXPECT_GE(frames, GetParam().Least);
    EXPECT_LE(frames, GetParam().Most);
    // The tone is there: its correlation with a sine and a cosine explains nearly all its power.
    double sine = 0;
    double cosine = 0;
    double power = 0;
    for (std::int64_t i = frames / 4; i < frames * 3 / 4; ++i) {
        const double x = read[static_cast<std::size_t>(2 * i)];
        const double phase = 440.0 * 2 * std::numbers::pi / rate * static_cast<double>(i);
        sine += x * std::sin(phase);
        cosine += x * std::cos(phase);
        power += x * x;
    }
    EXPECT_GT(power, 1e6);
    EXPECT_GT((sine * sine + cosine * cosine) / (power * static_cast<double>(frames) / 4), 0.95);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ForeignFileTest,
    testing::Values(ForeignFile{"tone.m4a", "AAC 44100 Hz; 58 kbit/s; stereo", 11025, 11025},
                    ForeignFile{"delay_in_comment.m4a", "AAC 44100 Hz; 58 kbit/s; stereo", 11025,
                                11025},
                    ForeignFile{"lossless.m4a", "ALAC 44100 Hz; 16 bit; stereo", 11025, 11025},
                    ForeignFile{"film.mp4", "AAC 44100 Hz; 58 kbit/s; stereo", 11025, 11025},
                    ForeignFile{"film.avi", "MP3 44100 Hz; 64 kbit/s; stereo", 11025, 13824},
                    ForeignFile{"tone.aac", "AAC 44100 Hz; 60 kbit/s; stereo", 12288, 12288},
                    ForeignFile{"tone.mp2", "MP2 44100 Hz; 64 kbit/s; stereo", 11520, 11520},
                    ForeignFile{"tone.wma", "WMA 44100 Hz; 64 kbit/s; stereo", 10240, 12288},
                    ForeignFile{"tone.wv", "WavPack 44100 Hz; 240 kbit/s; stereo", 11025, 11025},
                    ForeignFile{"tone.mka", "Opus 48000 Hz; 49 kbit/s; stereo", 11900, 12100}));

TEST_F(ReadingTest, ContentDecidesNotTheName) {
    const Samples noise = Noise(4000);
    Make(In("a.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 44100, 2, noise);
    for (const char* name : {"b.wav", "b.mp3", "b.vox", "b.raw", "b"}) {
        std::filesystem::copy_file(In("a.flac"), In(name));
        EXPECT_EQ(ReadAll(In(name)), noise) << name;
    }
    EXPECT_EQ(ReadAll(*Open(In("a.flac"), FormatType::Mp3)), noise);
    std::filesystem::copy_file(Data("tone.m4a"), In("c.wav"));
    EXPECT_EQ(Open(In("c.wav"))->Description().Frames, 11025);
}

TEST_F(ReadingTest, TakesHeaderlessDataForVoxByNameOrType) {
    WriteBytes(In("a.vox"), std::string(500, '\x08'));
    WriteBytes(In("b.bin"), std::string(500, '\x08'));
    const auto byName = Open(In("a.vox"));
    const auto byType = Open(In("b.bin"), FormatType::Vox);
    for (const SoundReader* reader : {byName.get(), byType.get()}) {
        ASSERT_TRUE(reader);
        EXPECT_EQ(reader->Description().Delivered, (PcmFormat{8000, 1}));
        EXPECT_EQ(reader->Description().Frames, 1000);
        EXPECT_EQ(reader->Description().Text, "VOX ADPCM 8000 Hz; 4 bit; mono");
    }
    EXPECT_EQ(ReadAll(*byName, 333), ReadAll(*byType));
}

TEST_F(ReadingTest, TellsWhyAFileCannotBeOpened) {
    std::filesystem::create_directory(In("folder.wav"));
    for (const char* name : {"missing.wav", "folder.wav", "no/such/folder.wav"})
        EXPECT_EQ(OpenError(In(name)), SoundError::FileAccess) << name;

    Make(In("whole.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 2, Noise(100));
    const std::string whole = ReadBytes(In("whole.wav"));
    std::mt19937 random(3);
    std::string garbage;
    for (int i = 0; i < 50'000; ++i)
        garbage += static_cast<char>(random());
    const std::vector<std::pair<const char*, std::string>> unreadable = {
        {"empty.wav", ""},
        {"one byte.mp3", "R"},
        {"truncated.wav", whole.substr(0, 30)},
        {"text.txt", "Once upon a time there was a sound.\n"},
        {"list.m3u8", "#EXTM3U\n#EXTINF:1,\n" + In("whole.wav").string() + "\n"},
        {"list.ffconcat", "ffconcat version 1.0\nfile '" + In("whole.wav").string() + "'\n"},
        {"garbage", garbage},
        {"garbage.wav", garbage},
        {"garbage.mp3", garbage},
        {"garbage.ogg", garbage}};
    for (const auto& [name, bytes] : unreadable) {
        WriteBytes(In(name), bytes);
        EXPECT_EQ(OpenError(In(name)), SoundError::FormatFile) << name;
    }

    WriteBytes(In("headerless.raw"), garbage);
    EXPECT_EQ(OpenError(In("headerless.raw")), SoundError::FormatNotSupported);
    EXPECT_EQ(OpenError(In("garbage"), FormatType::G726), SoundError::FormatNotSupported);
    EXPECT_EQ(OpenError(Data("picture.png")), SoundError::FormatNotSupported);
    EXPECT_EQ(OpenError(Data("silent.mp4")), SoundError::FormatNotSupported);
}

TEST_F(ReadingTest, DeliversWhatIsThereWhenTheHeaderClaimsMore) {
    const Samples noise = Noise(2000);
    Make(In("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1, noise);
    std::string bytes = ReadBytes(In("a.wav"));
    bytes.replace(40, 4, "\xFF\xFF\xFF\x7F", 4);
    WriteBytes(In("a.wav"), bytes.substr(0, 44 + 2 * 1500));
    EXPECT_EQ(ReadAll(In("a.wav")), Samples(noise.begin(), noise.begin() + 1500));

    Make(In("b.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 44100, 1, noise);
    bytes = ReadBytes(In("b.flac"));
    bytes.replace(22, 4, "\x7F\xFF\xFF\xFF", 4);  // the total in the stream's description
    WriteBytes(In("b.flac"), bytes);
    EXPECT_EQ(ReadAll(In("b.flac")), noise);
    // A length that no file of this size can have is not believed.
    EXPECT_LE(Open(In("b.flac"))->Description().Frames,
              static_cast<std::int64_t>(bytes.size()) * 8192);
}

TEST_F(ReadingTest, EndsWhereTheDiskFails) {
    const PcmFormat format{44100, 2};
    const Samples noise = Noise(600'000, 8000);
    const auto memory = std::make_shared<platform::MemoryFileSystem>();
    const SoundFiles files = FilesOf(memory);
    for (const char* name : {"a.wav", "a.flac", "a.ogg", "a.mp3"}) {
        ASSERT_TRUE(Save(In(name), format, noise));
        memory->AddFile("/a", ReadBytes(In(name)));
        memory->FailFrom(platform::MemoryFileSystem::Operation::Read, 1);
        EXPECT_EQ(files.Open("/a", FormatType::Default).Error, SoundError::FileAccess);
        memory->FailNothing();
        const auto opened = files.Open("/a", FormatType::Default);
        ASSERT_TRUE(opened) << name;
        memory->FailFrom(platform::MemoryFileSystem::Operation::Read, 2);
        EXPECT_LT(ReadAll(*opened.Result).size(), noise.size()) << name;
        memory->FailNothing();
    }
}

TEST_F(ReadingTest, LeavesDamagedPacketsOutAndGoesOn) {
    const PcmFormat format{44100, 2};
    const Samples noise = Noise(200'000, 8000);
    for (const char* name : {"a.mp3", "a.ogg", "a.flac"}) {
        ASSERT_TRUE(Save(In(name), format, noise));
        std::string bytes = ReadBytes(In(name));
        for (std::size_t i = bytes.size() / 2; i < bytes.size() / 2 + 3000; ++i)
            bytes[i] ^= 0x5A;
        WriteBytes(In(name), bytes);
        const std::size_t read = ReadAll(In(name)).size();
        EXPECT_GT(read, noise.size() * 3 / 4) << name;
        EXPECT_LE(read, noise.size()) << name;
    }
}

}  // namespace
}  // namespace mavrin2::dusoro
