#include <sys/stat.h>
#include <unistd.h>

#include "tests/companions/full_disk.h"
#include "tests/companions/sound_test.h"

namespace mavrin2::dusoro {
namespace {

using Names = std::vector<std::string>;

constexpr PcmFormat kStereo{44100, 2};

class SavingTest : public SoundTest {};

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

TEST_F(SavingTest, TheFileTakesItsNameOnlyWhenItIsComplete) {
    WriteBytes(In("a.wav"), "old");
    {
        const auto writer = Create(In("a.wav"), kStereo);
        ASSERT_TRUE(writer && writer->Write(Noise(100)));
        EXPECT_EQ(ReadBytes(In("a.wav")), "old");
        EXPECT_EQ(NamesInFolder().size(), 2U);
    }
    EXPECT_EQ(ReadBytes(In("a.wav")), "old");  // given up
    EXPECT_EQ(NamesInFolder(), Names{"a.wav"});

    const auto writer = Create(In("a.wav"), kStereo);
    ASSERT_TRUE(writer && writer->Write(Noise(100)) && writer->Finish());
    EXPECT_EQ(ReadAll(In("a.wav")), Noise(100));
    EXPECT_EQ(NamesInFolder(), Names{"a.wav"});
}

TEST_F(SavingTest, KeepsPermissionsAndFollowsLinks) {
    const mode_t mask = umask(027);
    ASSERT_TRUE(Save(In("new.wav"), kStereo, Noise(10)));
    umask(mask);
    struct stat status {};
    ASSERT_EQ(stat(In("new.wav").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640U);

    ASSERT_EQ(chmod(In("new.wav").c_str(), 0604), 0);
    std::filesystem::create_directory(In("folder"));
    std::filesystem::create_symlink("new.wav", In("link.wav"));
    std::filesystem::create_symlink("../link.wav", In("folder/far.wav"));
    ASSERT_TRUE(Save(In("folder/far.wav"), kStereo, Noise(20)));
    EXPECT_TRUE(std::filesystem::is_symlink(In("folder/far.wav")));
    EXPECT_TRUE(std::filesystem::is_symlink(In("link.wav")));
    EXPECT_EQ(ReadAll(In("new.wav")), Noise(20));
    ASSERT_EQ(stat(In("new.wav").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0604U);

    std::filesystem::create_symlink("not yet.wav", In("dangling.wav"));
    ASSERT_TRUE(Save(In("dangling.wav"), kStereo, Noise(30)));
    EXPECT_EQ(ReadAll(In("not yet.wav")), Noise(30));
}

TEST_F(SavingTest, RefusesPlacesWhereNoFileCanBe) {
    std::filesystem::create_directory(In("folder.wav"));
    std::filesystem::create_symlink("circle.wav", In("circle.wav"));
    ASSERT_EQ(mkfifo(In("pipe.wav").c_str(), 0600), 0);
    WriteBytes(In("file"), "");
    const Names before = NamesInFolder();
    for (const auto& path : {In("no/folder/a.wav"), In("folder.wav"), In("circle.wav"),
                             In("pipe.wav"), In("file/a.wav"), std::filesystem::path("/dev/null"),
                             In(std::string(300, 'x') + ".wav"), std::filesystem::path()})
        EXPECT_EQ(files_.Create(path, FormatType::Wav, {}).Error, SoundError::FileAccess) << path;
    EXPECT_EQ(NamesInFolder(), before);

    if (geteuid() == 0) return;  // who may write everywhere
    WriteBytes(In("protected.wav"), "");
    ASSERT_EQ(chmod(In("protected.wav").c_str(), 0444), 0);
    ASSERT_EQ(chmod(In("folder.wav").c_str(), 0555), 0);
    for (const char* name : {"protected.wav", "folder.wav/a.wav"})
        EXPECT_EQ(files_.Create(In(name), FormatType::Wav, {}).Error, SoundError::FileAccess);
}

}  // namespace
}  // namespace mavrin2::dusoro
