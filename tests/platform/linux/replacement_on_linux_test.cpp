// What only Linux has to say about replacing files: owners, links, killed processes.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

#include "platform/replacement_file.h"
#include "tests/platform/file_worlds.h"
#include "tests/support/child_process.h"

namespace {

using mavrin2::tests::BytesOf;
using mavrin2::tests::ChildProcess;
using mavrin2::tests::Signal;
using mavrin2::tests::SystemWorld;
namespace fs = std::filesystem;

class ReplacementsOnLinux : public testing::Test {
protected:
    fs::path At(std::string_view name) const { return world_.Folder() / name; }
    void Make(const fs::path& path, std::string_view text) {
        mavrin2::tests::Write(*world_.Files().Create(path), 0, text);
    }
    std::string Content(const fs::path& path) {
        const auto file = world_.Files().OpenForReading(path);
        return file ? mavrin2::tests::Read(*file, 0, 100) : "(none)";
    }
    std::error_code Save(const fs::path& path, std::string_view text) {
        std::error_code error;
        const auto file = replacements_->Create(path, error);
        if (!file) return error;
        file->Write(0, BytesOf(text));
        return file->Commit();
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(world_.Folder()))
            names.push_back(entry.path().filename());
        std::ranges::sort(names);
        return names;
    }
    static struct stat StatusOf(const fs::path& path) {
        struct stat status = {};
        EXPECT_EQ(::stat(path.c_str(), &status), 0);
        return status;
    }

    SystemWorld world_;
    std::shared_ptr<mavrin2::platform::ReplacementFiles> replacements_ =
        mavrin2::platform::SystemReplacementFiles();
};

TEST_F(ReplacementsOnLinux, KeepWhatBelongsToTheOldFile) {
    const mode_t mask = ::umask(027);
    EXPECT_FALSE(Save(At("a"), "first"));
    ::umask(mask);
    EXPECT_EQ(StatusOf(At("a")).st_mode & 07777, 0640u) << "as any new file";

    // Only the superuser may give a file away.
    [[maybe_unused]] const int given = ::chown(At("a").c_str(), 12345, 54321);
    ASSERT_EQ(::chmod(At("a").c_str(), 0604), 0);
    const bool labels = ::setxattr(At("a").c_str(), "user.note", "kept", 4, 0) == 0;
    const auto before = StatusOf(At("a"));
    EXPECT_FALSE(Save(At("a"), "second"));
    const auto after = StatusOf(At("a"));
    EXPECT_EQ(Content(At("a")), "second");
    EXPECT_NE(after.st_ino, before.st_ino) << "replaced";
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    char note[8] = {};
    if (labels) {
        EXPECT_EQ(::getxattr(At("a").c_str(), "user.note", note, sizeof note), 4);
        EXPECT_STREQ(note, "kept");
    }
    EXPECT_EQ(Names(), std::vector<std::string>{"a"});
}

TEST_F(ReplacementsOnLinux, WriteOverAFileWithOtherNames) {
    for (const std::string old : {"a much longer text than the new one", "x"}) {
        Make(At("a"), old);
        fs::create_hard_link(At("a"), At("b"));
        EXPECT_FALSE(Save(At("a"), "the new text"));
        EXPECT_EQ(Content(At("b")), "the new text");
        EXPECT_EQ(Names(), (std::vector<std::string>{"a", "b"}));

        Make(At("b"), old);
        std::error_code error;
        const auto staged = replacements_->Stage(At("a"), error);
        Make(staged->Path(), "by its name");
        EXPECT_FALSE(staged->Commit());
        EXPECT_EQ(Content(At("b")), "by its name");
        fs::remove(At("b"));
    }
}

// As a user who may write to another one's file, but not give it away.
TEST_F(ReplacementsOnLinux, KeepTheOwnerEvenWhereANewFileCannotHaveIt) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can become another user";
    Make(At("shared"), "old");
    Make(At("protected"), "old");
    fs::permissions(At("shared"), fs::perms(0666));
    fs::permissions(At("protected"), fs::perms(0644));
    fs::permissions(world_.Folder(), fs::perms(0777));
    ChildProcess other([&] {
        if (::setgid(12345) != 0 || ::setuid(12345) != 0) return 1;
        if (Save(At("protected"), "new") != std::errc::permission_denied) return 2;
        return Save(At("shared"), "new") ? 3 : 0;
    });
    EXPECT_EQ(other.Wait(), 0);
    EXPECT_EQ(Content(At("shared")), "new");
    EXPECT_EQ(Content(At("protected")), "old");
    EXPECT_EQ(StatusOf(At("shared")).st_uid, ::geteuid());
    EXPECT_EQ(Names(), (std::vector<std::string>{"protected", "shared"}));
}

// The disk is full just when a file that has other names would have to grow.
TEST_F(ReplacementsOnLinux, NoticeAFullDiskBeforeTheyWriteOverAFile) {
    Make(At("a"), "old");
    fs::create_hard_link(At("a"), At("b"));
    std::error_code error;
    auto file = replacements_->Create(At("a"), error);
    ASSERT_TRUE(file->Write(0, BytesOf("longer than before")));
    rlimit limit = {};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit full = {10, limit.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &full);
    EXPECT_TRUE(file->Commit());
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    file.reset();
    EXPECT_EQ(Content(At("b")), "old");
    EXPECT_EQ(StatusOf(At("b")).st_size, 3);
    EXPECT_EQ(Names(), (std::vector<std::string>{"a", "b"}));
}

TEST_F(ReplacementsOnLinux, FollowLinksWhetherOrNotTheyLeadToAFile) {
    fs::create_directory(At("folder"));
    Make(At("file"), "old");
    fs::create_symlink("file", At("link"));
    fs::create_symlink("../link", At("folder/far"));
    fs::create_symlink("not yet", At("dangling"));
    fs::create_symlink("circle", At("circle"));
    EXPECT_FALSE(Save(At("folder/far"), "new"));
    EXPECT_EQ(Content(At("file")), "new");
    EXPECT_FALSE(Save(At("dangling"), "there now"));
    EXPECT_EQ(Content(At("not yet")), "there now");
    for (const char* link : {"link", "folder/far", "dangling"})
        EXPECT_TRUE(fs::is_symlink(At(link))) << link;
    EXPECT_TRUE(Save(At("circle"), "x"));
    ASSERT_EQ(::mkfifo(At("pipe").c_str(), 0600), 0);
    EXPECT_TRUE(Save(At("pipe"), "x")) << "nor is a pipe replaced";
    EXPECT_TRUE(Save("/dev/null", "x"));
    EXPECT_EQ(Save(At(std::string(300, 'x')), "x"), std::errc::filename_too_long);
}

TEST_F(ReplacementsOnLinux, LeaveNothingOfAKilledProcessAfterTheNextSave) {
    Signal ready;
    ChildProcess dying([&] {
        std::error_code error;
        const auto file = replacements_->Create(At("a"), error);
        file->Write(0, BytesOf("half a fi"));
        const auto staged = replacements_->Stage(At("b"), error);
        Make(staged->Path(), "half a fi");
        ready.Give();
        return ::pause();  // for ever
    });
    ASSERT_TRUE(ready.Await());
    // Under a name, as it is where no file can be without one.
    Make(At(".mavrin2-0123456789abcdef.tmp"), "left behind");
    Make(At(".mavrin2-notes.tmp"), "the user's own");
    std::error_code error;
    const auto alive = replacements_->Stage(At("c"), error);
    Make(alive->Path(), "in the making");
    EXPECT_FALSE(Save(At("d"), "x"));
    EXPECT_GE(Names().size(), 4u) << "those of living processes stay, and the user's";
    dying.Kill();
    EXPECT_FALSE(Save(At("d"), "y"));
    EXPECT_FALSE(alive->Commit());
    EXPECT_EQ(Names(), (std::vector<std::string>{alive->Path().parent_path().filename(),
                                                 ".mavrin2-notes.tmp", "c", "d"}));
}

}  // namespace
