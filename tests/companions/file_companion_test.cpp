#include "tests/companions/file_companion_test.h"

namespace mavrin2::dusoro {
namespace {

using I = contracts::IDusoro2;

TEST_F(FileCompanionTest, ReadsAFileAsTheEditorOpensIt) {
    const Samples noise = Noise(5000);
    Make(In("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 22050, 2, noise);
    ASSERT_EQ(OpenFile(In("a.wav")), S_OK);
    EXPECT_EQ(Error(), 0);
    EXPECT_EQ(Get(&I::GetSourceFrequency), 22050);
    EXPECT_EQ(Get(&I::GetFrequency), 22050);
    EXPECT_EQ(Get(&I::GetChannels), 2);
    EXPECT_EQ(Get(&I::GetBitsPerSample), 16);
    EXPECT_EQ(Get(&I::GetLength), 2500);
    EXPECT_EQ(Get(&I::GetFormatKind), 1);
    EXPECT_EQ(Text(), "PCM 22050 Hz; 16 bit; stereo");
    Samples read;
    for (const std::size_t expected : {1000, 1000, 500, 0, 0}) {
        const Samples block = Read(1000);
        EXPECT_EQ(block.size(), expected * 2);
        read.insert(read.end(), block.begin(), block.end());
    }
    EXPECT_EQ(read, noise);
    EXPECT_EQ(companion_->CloseFile(), S_OK);
    EXPECT_EQ(companion_->CloseFile(), S_OK);
    Block none;
    EXPECT_TRUE(FAILED(companion_->ReadBlock(1000, none.Put())));
}

// The count is the caller's, the memory for it is not.
TEST_F(FileCompanionTest, TakesMemoryForWhatTheFileHolds) {
    Make(In("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 22050, 1, Noise(10'000));
    OpenFile(In("a.wav"));
    EXPECT_EQ(Read(0).size(), 0U);
    EXPECT_EQ(Read(INT32_MAX), Noise(10'000));
    Block block;
    EXPECT_EQ(companion_->ReadBlock(-1, block.Put()), E_INVALIDARG);

    // A file that is longer than it says: two joined, where the tag states the first one's length.
    Save(In("a.mp3"), {44100, 2}, Noise(400'000, 3000));
    const std::string once = ReadBytes(In("a.mp3"));
    WriteBytes(In("b.mp3"), once + once.substr(0, once.size() / 20));
    OpenFile(In("b.mp3"));
    EXPECT_GE(Read(INT32_MAX).size(), 400'000U);
}

TEST_F(FileCompanionTest, DeliversAnotherFormatOnDemand) {
    Make(In("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 22050, 1, Noise(22050));
    OpenFile(In("a.wav"));
    EXPECT_EQ(companion_->SetPcmFormat(8000, 1), S_OK);
    EXPECT_EQ(companion_->SetPcmFormat(44100, 2), S_OK);  // the last word counts
    EXPECT_EQ(Get(&I::GetLength), 44100);
    EXPECT_EQ(Get(&I::GetFrequency), 44100);
    EXPECT_EQ(Get(&I::GetChannels), 2);
    EXPECT_EQ(Get(&I::GetSourceFrequency), 22050);
    EXPECT_EQ(Read(44100 + 7).size(), 88200U);
    EXPECT_EQ(Get(&I::GetLength), 44100);
    EXPECT_TRUE(FAILED(companion_->SetPcmFormat(8000, 1)));  // too late
    EXPECT_EQ(companion_->SetPcmFormat(44100, 2), S_OK);
    for (const auto& [rate, channels] : {std::pair{0, 1}, {-1, 2}, {44100, 0}, {44100, 3}})
        EXPECT_EQ(companion_->SetPcmFormat(rate, channels), E_INVALIDARG);
    // The next file is delivered in its own format again.
    OpenFile(In("a.wav"));
    EXPECT_EQ(Get(&I::GetFrequency), 22050);
    EXPECT_EQ(Read(22050), Noise(22050));
}

TEST_F(FileCompanionTest, WritesAFileAsTheEditorSavesIt) {
    const Samples noise = Noise(60'000);
    // Stereo at an odd rate: the blocks of five seconds' worth of mono end within a frame.
    companion_->SetPcmFormat(11025, 2);
    ASSERT_EQ(CreateFile(In("a.flac")), S_OK);
    EXPECT_EQ(Error(), 0);
    EXPECT_EQ(Get(&I::GetFrequency), 11025);
    EXPECT_EQ(companion_->SetPcmFormat(11025, 2), S_OK);
    for (std::size_t i = 0; i < noise.size(); i += 9999)
        ASSERT_EQ(Write(Samples(noise.begin() + static_cast<std::ptrdiff_t>(i),
                                noise.begin() +
                                    static_cast<std::ptrdiff_t>(std::min(i + 9999, noise.size())))),
                  S_OK);
    EXPECT_EQ(Text(), "FLAC 11025 Hz; 16 bit; stereo");
    EXPECT_EQ(Get(&I::GetFormatKind), 0);
    EXPECT_FALSE(std::filesystem::exists(In("a.flac")));
    ASSERT_EQ(companion_->CloseFile(), S_OK);
    EXPECT_EQ(ReadAll(In("a.flac")), noise);
}

TEST_F(FileCompanionTest, VoxIsForItsOwnNamesAndForUnknownOnes) {
    EXPECT_EQ(companion_->SetFormatVOX(6000), S_OK);
    EXPECT_EQ(Text(), "VOX ADPCM 6000 Hz; 4 bit; mono");
    companion_->SetPcmFormat(12000, 2);
    for (const auto& [name, type] : {std::pair{"a.vox", 0}, {"b.wav", 3}, {"c.unknown", 0}}) {
        CreateFile(In(name), type);
        EXPECT_EQ(Error(), 0);
        EXPECT_EQ(Get(&I::GetFrequency), 6000);
        EXPECT_EQ(Write(Noise(24'000)), S_OK);
        EXPECT_EQ(companion_->CloseFile(), S_OK);
        EXPECT_EQ(std::filesystem::file_size(In(name)), 3000U) << name;
    }
    CreateFile(In("d.wav"));
    EXPECT_EQ(Get(&I::GetFrequency), 12000);
    EXPECT_EQ(Text(), "PCM 12000 Hz; 16 bit; stereo");
}

TEST_F(FileCompanionTest, UnknownNamesGetPcmOnceItIsChosen) {
    EXPECT_EQ(companion_->SetFormatPCM(44100, 2, 24), S_OK);
    EXPECT_EQ(Text(), "PCM 44100 Hz; 24 bit; stereo");
    EXPECT_EQ(Get(&I::GetFormatKind), 1);
    CreateFile(In("a.unknown"));
    EXPECT_EQ(Text(), "PCM 44100 Hz; 24 bit; stereo");
    CreateFile(In("b.vox"));
    EXPECT_EQ(Text(), "VOX ADPCM 8000 Hz; 4 bit; mono");
    companion_->SetFormatVOX(6000);
    CreateFile(In("c.wav"));
    EXPECT_EQ(Get(&I::GetBitsPerSample), 16);
}

TEST_F(FileCompanionTest, TellsWhyAFileCannotBeOpenedOrCreated) {
    WriteBytes(In("text.wav"), "no sound at all, but more than sixteen characters");
    EXPECT_TRUE(FAILED(OpenFile(In("missing.wav"))));
    EXPECT_EQ(Error(), -18);
    EXPECT_TRUE(FAILED(OpenFile(In("text.wav"))));
    EXPECT_EQ(Error(), -12);
    EXPECT_TRUE(FAILED(OpenFile(In("text.wav"), 4)));
    EXPECT_EQ(Error(), -13);
    EXPECT_TRUE(FAILED(CreateFile(In("no/folder/a.wav"))));
    EXPECT_EQ(Error(), -18);
    EXPECT_TRUE(FAILED(CreateFile(In("a.m4a"))));
    EXPECT_EQ(Error(), -13);
    // A name with a zero in it is not the name up to there.
    Make(In("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 22050, 1, Noise(10));
    EXPECT_TRUE(FAILED(OpenFile(In("a.wav").string() + std::string("\0.wav", 5))));
    EXPECT_EQ(Error(), -18);
    EXPECT_TRUE(FAILED(companion_->OpenSoundFile(nullptr, 0, 1)));
    EXPECT_EQ(Error(), -18);
    EXPECT_EQ(OpenFile(In("a.wav")), S_OK);
    EXPECT_EQ(Error(), 0);
}

TEST_F(FileCompanionTest, AnotherFileGivesAnUnfinishedOneUp) {
    Make(In("b.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 22050, 1, Noise(10));
    ASSERT_EQ(CreateFile(In("a.wav")), S_OK);
    ASSERT_EQ(Write(Noise(10)), S_OK);
    EXPECT_EQ(OpenFile(In("b.wav")), S_OK);
    EXPECT_EQ(NamesInFolder(), std::vector<std::string>{"b.wav"});
    ASSERT_EQ(CreateFile(In("a.wav")), S_OK);
    companion_.Reset();
    EXPECT_EQ(NamesInFolder(), std::vector<std::string>{"b.wav"});
}

}  // namespace
}  // namespace mavrin2::dusoro
