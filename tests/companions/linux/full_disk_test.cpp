#include "tests/companions/linux/full_disk.h"
#include "tests/companions/file_companion_test.h"

namespace mavrin2::dusoro {
namespace {

using Names = std::vector<std::string>;

constexpr PcmFormat kStereo{44100, 2};

class FullDiskTest : public SoundTest, public testing::WithParamInterface<const char*> {};

// The disk is full at every stage of a save in turn: nothing of it stays, and the older file does.
TEST_P(FullDiskTest, KeepsTheOldFileAndLeavesNothingElse) {
    const char* name = GetParam();
    const Samples noise = Noise(30'000, 8000);
    ASSERT_TRUE(Save(In(name), kStereo, noise));
    const auto whole = static_cast<rlim_t>(std::filesystem::file_size(In(name)));
    WriteBytes(In(name), "what was there before");
    rlim_t room = 0;
    while (room < whole) {
        bool saved = true;
        {
            const FullDisk full(room);
            OutputSettings settings;
            settings.Document = kStereo;
            auto created = files_.Create(In(name), FormatType::Default, settings);
            EXPECT_TRUE(created || created.Error == SoundError::FileAccess) << room;
            ASSERT_TRUE(!created || files_.WriteFrom(created.Result, kStereo));
            saved = created && created.Result->Write(noise) && created.Result->Finish();
        }
        EXPECT_FALSE(saved) << room;
        EXPECT_EQ(ReadBytes(In(name)), "what was there before") << room;
        EXPECT_EQ(NamesInFolder(), Names{name}) << room;
        room += room < 200 ? 20 : whole / 7;
    }
    EXPECT_TRUE(Save(In(name), kStereo, noise));
    EXPECT_EQ(std::filesystem::file_size(In(name)), whole);
}

INSTANTIATE_TEST_SUITE_P(Kinds, FullDiskTest,
                         testing::Values("a.wav", "a.aiff", "a.flac", "a.ogg", "a.opus", "a.mp3",
                                         "a.vox"));

TEST_F(FileCompanionTest, AFailedSaveSaysSoAndKeepsTheOldFile) {
    WriteBytes(In("a.wav"), "old");
    const std::vector<std::string> before = NamesInFolder();
    companion_->SetPcmFormat(44100, 2);
    {
        ASSERT_EQ(CreateFile(In("a.wav")), S_OK);
        const FullDisk full(1000);
        EXPECT_TRUE(FAILED(Write(Noise(10'000))));
    }
    EXPECT_EQ(Error(), -18);
    EXPECT_EQ(NamesInFolder(), before);
    EXPECT_TRUE(FAILED(Write(Noise(10))));
    EXPECT_TRUE(FAILED(companion_->CloseFile()));  // for callers who look at this only
    EXPECT_EQ(companion_->CloseFile(), S_OK);

    // The samples fit into the encoder's own memory, and the file fails only at the end.
    ASSERT_EQ(CreateFile(In("a.mp3")), S_OK);
    ASSERT_EQ(Write(Noise(100)), S_OK);
    {
        const FullDisk full(100);
        EXPECT_TRUE(FAILED(companion_->CloseFile()));
    }
    EXPECT_EQ(Error(), -18);
    EXPECT_EQ(NamesInFolder(), before);
    EXPECT_EQ(ReadBytes(In("a.wav")), "old");
}

}  // namespace
}  // namespace mavrin2::dusoro
