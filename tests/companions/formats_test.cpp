// Every format that a host can choose, as the editor writes and opens it.

#include <functional>

#include "automation/text.h"
#include "companions/dusoro/file_companion.h"
#include "companions/dusoro/lame_settings_object.h"
#include "tests/companions/sound_test.h"

namespace mavrin2::dusoro {
namespace {

using automation::Bstr;
using Companion = contracts::IDusoro2;

constexpr LONG kRates[] = {50, 4000, 8000, 11025, 22050, 44100, 48000, 96000, 700000};
constexpr LONG kAcmDriver = -17;

struct Format {
    const char* Name;
    const char* File;
    std::function<void(Companion&, LONG rate, LONG channels)> Choose;
    LONG MostChannels;
    // Frames that the coding adds at most; 0 where files keep their exact length.
    LONG Added;
};

const Format kFormats[] = {
    {"PCM 8", "a.wav", [](Companion& c, LONG r, LONG n) { c.SetFormatPCM(r, n, 8); }, 2, 0},
    {"PCM 24", "a.aiff", [](Companion& c, LONG r, LONG n) { c.SetFormatPCM(r, n, 24); }, 2, 0},
    {"PCM 32", "a.unknown", [](Companion& c, LONG r, LONG n) { c.SetFormatPCM(r, n, 32); }, 2, 0},
    {"RAW 8", "a.raw", [](Companion& c, LONG r, LONG n) { c.SetFormatRAW(1, r, n, 8); }, 2, 0},
    {"RAW A-law", "a.raw", [](Companion& c, LONG r, LONG n) { c.SetFormatRAW(2, r, n, 16); }, 2, 0},
    {"RAW u-law", "a.pcm", [](Companion& c, LONG r, LONG n) { c.SetFormatRAW(3, r, n, 16); }, 2, 0},
    {"RAW GSM", "a.raw", [](Companion& c, LONG r, LONG n) { c.SetFormatRAW(4, r, n, 16); }, 1, 160},
    {"RAW IMA", "a.raw", [](Companion& c, LONG r, LONG n) { c.SetFormatRAW(5, r, n, 16); }, 2,
     8192},
    {"RAW MS", "a.raw", [](Companion& c, LONG r, LONG n) { c.SetFormatRAW(6, r, n, 16); }, 2, 8192},
    {"A-law", "a.wav", [](Companion& c, LONG r, LONG n) { c.SetFormatALAW(r, n); }, 2, 0},
    {"u-law", "a.au", [](Companion& c, LONG r, LONG n) { c.SetFormatULAW(r, n); }, 2, 0},
    {"ADPCM", "a.wav", [](Companion& c, LONG r, LONG n) { c.SetFormatADPCM(r, n); }, 2, 0},
    {"GSM", "a.wav", [](Companion& c, LONG r, LONG) { c.SetFormatGSM(r); }, 1, 0},
    {"VOX", "a.vox", [](Companion& c, LONG r, LONG) { c.SetFormatVOX(r); }, 1, 1},
    {"MP2", "a.mp2", [](Companion& c, LONG r, LONG n) { c.SetFormatMP2(r, 128, n); }, 2, 2304},
    {"MP3", "a.mp3", [](Companion& c, LONG r, LONG n) { c.SetFormatMP3(r, 128, n); }, 2, 0},
    {"Vorbis", "a.ogg",
     [](Companion& c, LONG r, LONG n) { c.SetFormatOggVorbis(r, n, 128, 96, 160, 65535); }, 2, 0},
    {"Vorbis quality", "a.ogg",
     [](Companion& c, LONG r, LONG n) { c.SetFormatOggVorbis(r, n, 128, 0, 0, 3); }, 2, 0},
    {"WMA", "a.wma", [](Companion& c, LONG, LONG) { c.SetFormatWMA(39); }, 2, 8192},
    {"G.721", "a.au", [](Companion& c, LONG r, LONG) { c.SetFormatG721(r); }, 1, 120},
    {"G.723", "a.g723", [](Companion& c, LONG r, LONG) { c.SetFormatG723(r, 5); }, 1, 120},
    {"G.726", "a.g726", [](Companion& c, LONG r, LONG) { c.SetFormatG726(r, 4); }, 1, 4},
};

class FormatsTest : public SoundTest {
protected:
    LONG Get(HRESULT (STDMETHODCALLTYPE Companion::*member)(LONG*)) {
        LONG value = -1;
        EXPECT_EQ((companion_.Get()->*member)(&value), S_OK);
        return value;
    }
    std::string Text() {
        Bstr text;
        EXPECT_EQ(companion_->GetFormatText(text.Put()), S_OK);
        return text.Utf8();
    }
    // Writes sound of the document's format and returns the error.
    LONG Save(const std::string& name, const Samples& samples, PcmFormat document, LONG type = 0) {
        companion_->SetPcmFormat(document.Rate, document.Channels);
        companion_->CreateSoundFile(Bstr(In(name).string()).Get(), type);
        const LONG error = Get(&Companion::GetErrorCode);
        if (error != 0) return error;
        rate_ = Get(&Companion::GetFrequency);
        automation::SafeArray<std::int16_t> block(samples.size());
        std::ranges::copy(samples,
                          automation::ArrayView<std::int16_t>(block.Get()).Elements().begin());
        EXPECT_EQ(companion_->WriteBlock(block.Get()), S_OK);
        EXPECT_EQ(companion_->CloseFile(), S_OK);
        return 0;
    }
    LONG FramesRead() {
        LONG frames = 0;
        while (true) {
            automation::SafeArray<std::int16_t> block;
            EXPECT_EQ(companion_->ReadBlock(10'000, block.Put()), S_OK);
            const auto size = automation::ArrayView<std::int16_t>(block.Get()).Elements().size();
            if (size == 0) return frames;
            frames += static_cast<LONG>(size) / Get(&Companion::GetChannels);
        }
    }

    automation::ComPtr<FileCompanion> companion_ =
        FileCompanion::Make(FilesOf(platform::SystemPorts().Files));
    LONG rate_ = 0;  // of the file that was written last
};

TEST_F(FormatsTest, OpenAgainWithTheirLengthAtEveryRateAndChannelCount) {
    constexpr PcmFormat kDocument{22050, 2};
    constexpr std::int64_t kFrames = 9001;
    const Samples noise = Noise(kFrames * 2, 9000);
    for (const Format& format : kFormats) {
        for (const LONG rate : kRates) {
            for (const LONG channels : {1, 2, 5}) {
                SCOPED_TRACE(std::string(format.Name) + " " + std::to_string(rate) + " " +
                             std::to_string(channels));
                format.Choose(*companion_.Get(), rate, channels);
                const std::string chosen = Text();
                ASSERT_EQ(Save(format.File, noise, kDocument), 0);
                companion_->OpenSoundFile(Bstr(In(format.File).string()).Get(), 0, 1);
                ASSERT_EQ(Get(&Companion::GetErrorCode), 0);
                EXPECT_EQ(Get(&Companion::GetFrequency), rate_);
                EXPECT_EQ(Get(&Companion::GetChannels),
                          format.Name == std::string("WMA")
                              ? 2
                              : std::min(channels, format.MostChannels));
                const std::int64_t least = FramesAtRate(kFrames, kDocument.Rate, rate_);
                const LONG read = FramesRead();
                EXPECT_GE(read, least);
                EXPECT_LE(read, least + format.Added);
                EXPECT_NEAR(static_cast<double>(Get(&Companion::GetLength)),
                            static_cast<double>(least), static_cast<double>(format.Added));
                companion_->CloseFile();
                EXPECT_EQ(Text(), chosen) << "the choice stays";
            }
        }
    }
}

TEST_F(FormatsTest, ValuesOutOfRangeBecomeTheNearest) {
    companion_->SetFormatPCM(0, -3, 11);
    EXPECT_EQ(Text(), "PCM 1 Hz; 8 bit; mono");
    companion_->SetFormatPCM(2'000'000'000, 99, 1000);
    EXPECT_EQ(Text(), "PCM 1000000 Hz; 32 bit; stereo");
    companion_->SetFormatMP3(96000, 350, 2);
    EXPECT_EQ(Text(), "MP3 48000 Hz; 320 kbit/s; stereo");
    companion_->SetFormatMP3(8000, 320, 1);
    EXPECT_EQ(Text(), "MP3 8000 Hz; 64 kbit/s; mono");
    companion_->SetFormatMP2(1, 100, 7);
    EXPECT_EQ(Text(), "MP2 16000 Hz; 96 kbit/s; stereo");
    companion_->SetFormatG726(8000, 32);
    EXPECT_EQ(Text(), "G.726 8000 Hz; 5 bit; mono");
    companion_->SetFormatRAW(9, 8000, 1, 8);
    EXPECT_EQ(Text(), "MS ADPCM 8000 Hz; 4 bit; mono");
    companion_->SetFormatWMA(1000);
    EXPECT_EQ(Text(), "WMA 48000 Hz; 320 kbit/s; stereo");
    // Bit rates that Vorbis does not have, and limits that contradict each other.
    const Samples noise = Noise(20'000);
    for (const LONG rate : {1, 8000, 44100, 192000})
        for (const auto& [nominal, least, most] : {std::array<LONG, 3>{1, 0, 0},
                                                   {100000, 0, 0},
                                                   {128, 500, 8},
                                                   {0, 64, 0},
                                                   {-5, -5, -5},
                                                   {2147483647, 2147483647, 2147483647}}) {
            companion_->SetFormatOggVorbis(rate, 2, nominal, least, most, 65535);
            EXPECT_EQ(Save("a.ogg", noise, {44100, 2}), 0) << rate << " " << nominal;
        }
}

TEST_F(FormatsTest, EveryWmaProfileIsWritten) {
    const Samples noise = Noise(30'000, 9000);
    for (LONG profile = -1; profile <= 60; ++profile) {
        companion_->SetFormatWMA(profile);
        ASSERT_EQ(Save("a.wma", noise, {44100, 2}), 0) << profile;
        const auto reader = Open(In("a.wma"));
        ASSERT_TRUE(reader) << profile;
        EXPECT_EQ(reader->Description().Delivered.Rate, rate_) << profile;
        EXPECT_GE(ReadAll(*reader).size() /
                      static_cast<std::size_t>(reader->Description().Delivered.Channels),
                  static_cast<std::size_t>(FramesAtRate(15'000, 44100, rate_)))
            << profile;
    }
}

TEST_F(FormatsTest, AChoiceAppliesToNamesThatCanHaveIt) {
    constexpr PcmFormat kDocument{44100, 2};
    const Samples noise = Noise(2000);
    companion_->SetFormatULAW(8000, 1);
    for (const auto& [name, type, rate] : {std::tuple{"a.wav", 0, 8000},
                                           {"a.au", 0, 8000},
                                           {"a.unknown", 0, 8000},
                                           {"a", 0, 8000},
                                           {"a.aiff", 0, 44100},
                                           {"a.mp3", 0, 44100},
                                           {"a.mp3", 1, 8000},
                                           {"a.vox", 0, 8000},
                                           {"a.opus", 0, 48000}}) {
        EXPECT_EQ(Save(name, noise, kDocument, type), 0) << name;
        EXPECT_EQ(rate_, rate) << name;
    }
    // A format without an encoder, where it applies.
    companion_->SetFormatDSP();
    EXPECT_EQ(Save("b.wav", noise, kDocument), kAcmDriver);
    EXPECT_EQ(Save("b.mp3", noise, kDocument), 0);
    EXPECT_FALSE(std::filesystem::exists(In("b.wav")));
    VARIANT_BOOL chosen = VARIANT_TRUE;
    EXPECT_EQ(companion_->SetFormatFromMenu(&chosen), S_OK);
    EXPECT_EQ(chosen, VARIANT_FALSE);
    EXPECT_EQ(Save("b.wav", noise, kDocument), kAcmDriver) << "nothing has changed";
}

TEST_F(FormatsTest, ASampleGivesItsFormat) {
    const Samples noise = Noise(40'000);
    for (const Format& format : kFormats) {
        const std::string name = format.File;
        if (name.ends_with(".raw") || name.ends_with(".pcm")) continue;
        format.Choose(*companion_.Get(), 44100, 2);
        const std::string text = Text();
        ASSERT_EQ(Save(name, noise, {44100, 2}), 0);
        companion_->SetFormatPCM(8000, 1, 16);
        EXPECT_EQ(companion_->SetFormatLikeSample(Bstr(In(name).string()).Get()), S_OK);
        // Without the bit rate, which not every file states.
        EXPECT_EQ(Text().substr(0, Text().find(" Hz")),
                  name == "a.vox" ? "VOX ADPCM 8000" : text.substr(0, text.find(" Hz")))
            << format.Name;
    }
    companion_->SetFormatMP3(44100, 96, 2);
    companion_->SetFormatLikeSample(Bstr(In("missing.wav").string()).Get());
    EXPECT_EQ(Text(), "MP3 44100 Hz; 96 kbit/s; stereo") << "nothing has changed";
}

TEST_F(FormatsTest, TellsWhatTheEncodersHave) {
    const auto mpeg = [&](LONG frequency, LONG bitrate, LONG channels) {
        VARIANT_BOOL answer = 7;
        EXPECT_EQ(companion_->IsFormatMpegAvailable(frequency, bitrate, channels, &answer), S_OK);
        return answer == VARIANT_TRUE;
    };
    EXPECT_TRUE(mpeg(44100, 320, 2) && mpeg(22050, 8, 1) && mpeg(8000, 64, 1));
    EXPECT_FALSE(mpeg(44100, 8, 2) || mpeg(44101, 128, 2) || mpeg(8000, 128, 1) ||
                 mpeg(44100, 350, 2) || mpeg(44100, 128, 3) || mpeg(-1, -1, -1));
    const auto vorbis = [&](LONG frequency, LONG channels, LONG nominalBitrate, LONG minBitrate,
                            LONG maxBitrate) {
        VARIANT_BOOL answer = 7;
        EXPECT_EQ(companion_->IsFormatOggVorbisAvailable(frequency, channels, nominalBitrate,
                                                         minBitrate, maxBitrate, &answer),
                  S_OK);
        return answer == VARIANT_TRUE;
    };
    EXPECT_TRUE(vorbis(44100, 2, 128, 0, 0) && vorbis(44100, 2, 128, 96, 160));
    EXPECT_FALSE(vorbis(44100, 2, 1, 0, 0) || vorbis(44100, 2, 9999, 0, 0) ||
                 vorbis(44100, 2, 128, 160, 96) || vorbis(4000, 2, 128, 0, 0));
}

class Mp3SettingsTest : public FormatsTest {
protected:
    std::string SaveWith(const std::string& options) {
        EXPECT_EQ(settings_->SetParamsFromCommandLine(Bstr(options).Get()), S_OK);
        return SaveNow();
    }
    std::string SaveNow() {
        companion_->SetFormatMP3Ex(settings_.Get());
        EXPECT_EQ(Save("a.mp3", Noise(60'000, 9000), {44100, 2}), 0);
        return ReadBytes(In("a.mp3"));
    }
    // Of the tag frame: what all frames have in common.
    static int Field(const std::string& file, std::size_t byte, int shift, int mask) {
        return static_cast<unsigned char>(file[byte]) >> shift & mask;
    }
    static std::string TagOf(const std::string& file) {
        for (const char* name : {"Info", "Xing"})
            if (file.substr(0, 64).find(name) != std::string::npos) return name;
        return "";
    }
    static int LowPass(const std::string& file) {
        return Field(file, file.find("LAME3.") + 10, 0, 255) * 100;
    }
    // The method in the tag: 1 constant, 2 average, 3 old, 4 new.
    static int Method(const std::string& file) {
        return Field(file, file.find("LAME3.") + 9, 0, 15);
    }

    automation::ComPtr<LameSettingsObject> settings_ = LameSettingsObject::Make();
};

TEST_F(Mp3SettingsTest, AreThoseOfTheFile) {
    EXPECT_EQ(TagOf(SaveWith("-b 192")), "Info");
    EXPECT_EQ(Text(), "MP3 44100 Hz; 192 kbit/s; stereo");
    EXPECT_EQ(Method(SaveWith("-b 192")), 1);
    EXPECT_EQ(TagOf(SaveWith("--vbr-new -v 2")), "Xing");
    EXPECT_EQ(Method(SaveWith("--vbr-new -v 2")), 4);
    EXPECT_EQ(Method(SaveWith("--vbr-old -v 2")), 3);
    EXPECT_EQ(Method(SaveWith("--abr 130")), 2);
    EXPECT_EQ(Method(SaveWith("--alt-preset standard")), 4);
    EXPECT_EQ(Method(SaveWith("--alt-preset insane")), 1);
    EXPECT_EQ(TagOf(SaveWith("-t")), "");
    EXPECT_EQ(LowPass(SaveWith("--lowpass 12")), 12000);
    EXPECT_EQ(LowPass(SaveWith("--preset fm")), 10000);
    // Mode: 0 stereo, 1 joint, 2 two channels, 3 one.
    for (const auto& [mode, bits] : {std::pair{"s", 0}, {"j", 1}, {"f", 1}, {"d", 2}, {"m", 3}})
        EXPECT_EQ(Field(SaveWith(std::string("-m ") + mode), 3, 6, 3), bits) << mode;
    EXPECT_EQ(Field(SaveWith("-p"), 1, 0, 1), 0);
    EXPECT_EQ(Field(SaveWith("-q 5"), 1, 0, 1), 1);
    for (const auto& [emphasis, bits] : {std::pair{"0", 0}, {"1", 1}, {"2", 1}, {"3", 3}, {"9", 3}})
        EXPECT_EQ(Field(SaveWith(std::string("-e ") + emphasis), 3, 0, 3), bits) << emphasis;
    SaveWith("--resample 22.05 -m m");
    EXPECT_EQ(rate_, 22050);
    // A change after the choice.
    settings_->put_Frequency(32000);
    ASSERT_EQ(Save("b.mp3", Noise(10'000), {44100, 2}), 0);
    EXPECT_EQ(rate_, 32000);
    // Sizes tell of what the headers do not.
    const auto size = [&](const char* options) { return SaveWith(options).size(); };
    EXPECT_LT(size("--vbr-new -v 9"), size("--vbr-new -v 1"));
    EXPECT_LT(size("--vbr-new -v 9"), size("--vbr-new -v 9 -b 224 -B 320"));
    EXPECT_NE(SaveWith("-b 128 --nores"), SaveWith("-b 128"));
    EXPECT_NE(SaveWith("-b 128 -noshort"), SaveWith("-b 128"));
    EXPECT_NE(SaveWith("-b 128 --highpass 2"), SaveWith("-b 128"));
}

TEST_F(Mp3SettingsTest, OfEveryKindAreEncoded) {
    std::mt19937 random(3);
    const auto any = [&] {
        return static_cast<LONG>(random() % 3 ? random() % 400 : random() % 200'000);
    };
    for (int i = 0; i < 150; ++i) {
        const auto small = [&] { return static_cast<SHORT>(any()); };
        settings_->SetParamsFromPreset(static_cast<SHORT>(random() % 14));
        if (i % 2) settings_->SetParamsFromAltPreset(static_cast<SHORT>(random() % 7));
        settings_->put_Bitrate(any());
        settings_->put_VbrBitrate(any());
        settings_->put_Channels(any());
        settings_->put_EncoderQuality(small());
        settings_->put_VbrQuality(small());
        if (i % 3) settings_->put_Frequency(any() * 100);
        if (i % 4) settings_->put_VbrCodingMethod(static_cast<LONG>(random() % 8) - 2);
        settings_->put_AbrBitrate(small());
        settings_->put_LowPassFrequency(any() * 100 - 200);
        settings_->put_HighPassFrequency(any() * 100 - 200);
        settings_->put_LowPassWidth(any() * 10 - 20);
        settings_->put_HighPassWidth(any() * 10 - 20);
        settings_->put_ATHControlMode(small());
        settings_->put_Emphasis(small());
        settings_->put_TypeStereo(any() % 7);
        settings_->put_BlockTypeControl(small());
        settings_->put_StrictISOCompliance(small());
        settings_->put_StrictlyEnforceMinBitrate(small());
        settings_->put_WritingVBRHeader(small());
        companion_->SetFormatMP3Ex(settings_.Get());
        ASSERT_EQ(Save("a.mp3", Noise(6'000), {44100, 2}), 0) << i;
        ASSERT_TRUE(Open(In("a.mp3"))) << i;
    }
}

}  // namespace
}  // namespace mavrin2::dusoro
