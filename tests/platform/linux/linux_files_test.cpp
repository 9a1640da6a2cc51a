// What the system itself brings in: permissions, links, pipes and other users' plants.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/platform/file_worlds.h"
#include "tests/support/environment_variable.h"

namespace {

using mavrin2::tests::EnvironmentVariable;
using mavrin2::tests::Read;
using mavrin2::tests::ScratchFolder;
using mavrin2::tests::SystemWorld;
using mavrin2::tests::Write;
namespace fs = std::filesystem;

unsigned ModeOf(const fs::path& path) {
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

class LinuxFiles : public testing::Test {
protected:
    mavrin2::platform::FileSystem& Files() { return world_.Files(); }
    fs::path At(std::string_view name) const { return world_.Folder() / name; }

    SystemWorld world_;
};

TEST_F(LinuxFiles, AreTheUsersAlone) {
    const auto oldMask = ::umask(0);
    EXPECT_TRUE(Files().Create(At("a")));
    const auto unique = Files().CreateUniqueFile(world_.Folder(), "nct");
    ::umask(oldMask);
    EXPECT_EQ(ModeOf(At("a")), 0600u);
    EXPECT_EQ(ModeOf(unique), 0600u);
}

TEST_F(LinuxFiles, DoNotFollowALinkWhenTheyAreMade) {
    ASSERT_TRUE(Write(*Files().Create(At("victim")), 0, "precious"));
    fs::create_symlink(At("victim"), At("link"));
    fs::create_symlink(At("nowhere"), At("dangling"));
    EXPECT_FALSE(Files().Create(At("link")));
    EXPECT_FALSE(Files().Create(At("dangling")));
    EXPECT_FALSE(fs::exists(At("nowhere")));
    EXPECT_EQ(Read(*Files().OpenForReading(At("link")), 0, 10), "precious");
    EXPECT_EQ(Files().List(world_.Folder(), "", "").size(), 1u) << "a link is no plain file";
}

TEST_F(LinuxFiles, AreNotPipesOrDevices) {
    ASSERT_EQ(::mkfifo(At("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(Files().OpenForReading(At("pipe")));
    EXPECT_FALSE(Files().OpenForUpdate(At("pipe")));
    EXPECT_FALSE(Files().OpenForReading("/dev/zero"));
}

TEST_F(LinuxFiles, AreDrivesWhereTheUserSaysThatTheyAreImagesOfDiscs) {
    for (const auto* const name : {"disc.cue", "other.cue"})
        Files().Create(At(name));
    const EnvironmentVariable images("MAVRIN2_CD_IMAGES",
                                     "/missing.cue:" + At("disc.cue").string());
    EXPECT_TRUE(Files().IsOnCdDrive(At("disc.cue")));
    EXPECT_TRUE(Files().IsOnCdDrive(At("disc.cue") / "Track05.cda"));
    EXPECT_FALSE(Files().IsOnCdDrive(At("other.cue") / "Track05.cda"));
    EXPECT_FALSE(Files().IsOnCdDrive(At("missing.cue") / "Track05.cda"));
    fs::create_directory(At("folder"));
    EXPECT_EQ(Files().DriveOf(At("folder/../disc.cue") / "Track05.cda"), At("disc.cue"));
    EXPECT_EQ(Files().DriveOf("/media/cd/Track05.cda"), "/media/cd");
}

TEST_F(LinuxFiles, ResolveARelativeFolderWithoutMovingTheProcess) {
    fs::create_directories(At("real/inner"));
    fs::create_directory_symlink(At("real/inner"), At("link"));
    const auto before = fs::current_path();
    EXPECT_EQ(Files().UsableFolder("."), before / "");
    EXPECT_EQ(fs::current_path(), before);
    EXPECT_EQ(Files().UsableFolder(At("link")), At("link/")) << "as the user knows it";
    EXPECT_EQ(Files().UsableFolder(At("link/..")), fs::canonical(At("real")) / "")
        << "where the system goes";
}

TEST_F(LinuxFiles, KeepTheTemporaryFolderPrivate) {
    const EnvironmentVariable variable("TMPDIR", world_.Folder().string());
    const auto folder = Files().TemporaryFolder();
    EXPECT_EQ(folder.parent_path().parent_path(), world_.Folder());
    EXPECT_EQ(ModeOf(folder.parent_path()), 0700u);
    EXPECT_EQ(Files().TemporaryFolder(), folder) << "the same each time";
    fs::permissions(folder, fs::perms::all);
    EXPECT_EQ(Files().TemporaryFolder(), folder);
    EXPECT_EQ(ModeOf(folder.parent_path()), 0700u) << "made private again";
}

TEST_F(LinuxFiles, TakeAnotherTemporaryFolderWhereSomethingWasPlanted) {
    const EnvironmentVariable variable("TMPDIR", world_.Folder().string());
    const auto name = Files().TemporaryFolder().parent_path();
    fs::remove(name);
    fs::create_directory(At("elsewhere"));
    fs::create_directory_symlink(At("elsewhere"), name);
    const auto other = Files().TemporaryFolder();
    EXPECT_NE(other, name / "");
    EXPECT_EQ(ModeOf(other.parent_path()), 0700u);
    EXPECT_NE(ModeOf(At("elsewhere")), 0700u) << "what the link leads to was not touched";
    fs::remove(name);

    // A folder of another user; only the superuser can make one.
    if (::geteuid() != 0) return;
    fs::create_directory(name);
    ASSERT_EQ(::chown(name.c_str(), 12345, 12345), 0);
    EXPECT_NE(Files().TemporaryFolder(), name / "");
}

TEST_F(LinuxFiles, HaveATemporaryFolderThoughOthersTakeItsNames) {
    const EnvironmentVariable variable("TMPDIR", world_.Folder().string());
    const std::string name = "mavrin2-" + std::to_string(::geteuid());
    std::vector<std::string> taken = {name};
    for (int i = 0; i < 12; ++i)
        taken.push_back(name + "-" + std::to_string(i));
    for (const auto& plant : taken)
        ASSERT_TRUE(Files().Create(At(plant)));
    const auto folder = Files().TemporaryFolder();
    EXPECT_EQ(ModeOf(folder.parent_path()), 0700u);
    EXPECT_EQ(Files().TemporaryFolder(), folder) << "the same each time";
    for (const auto& plant : taken)
        Files().Remove(At(plant));
    EXPECT_EQ(Files().TemporaryFolder(), folder) << "also when the others have gone";
}

TEST_F(LinuxFiles, FallBackToTheCommonTemporaryFolder) {
    ASSERT_TRUE(Files().Create(At("file")));
    for (const char* name : {"missing", "file"}) {
        const EnvironmentVariable variable("TMPDIR", At(name).string());
        EXPECT_EQ(Files().TemporaryFolder().parent_path().parent_path(), "/tmp");
    }
}

}  // namespace
