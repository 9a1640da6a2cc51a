#include "tests/companions/full_disk.h"
#include "tests/companions/sound_test.h"

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

}  // namespace
}  // namespace mavrin2::dusoro
