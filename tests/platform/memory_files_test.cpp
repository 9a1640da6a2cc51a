// How the file system of tests is made to fail.

#include <gtest/gtest.h>

#include "tests/platform/file_worlds.h"

namespace {

using mavrin2::platform::MemoryFileSystem;
using mavrin2::tests::BytesOf;
using mavrin2::tests::Read;
using mavrin2::tests::Write;
using Operation = MemoryFileSystem::Operation;

TEST(MemoryFiles, FailOnceOrFromACallOn) {
    MemoryFileSystem files;
    const auto file = files.Create("/a");
    ASSERT_TRUE(Write(*file, 0, "0"));
    files.FailNth(Operation::Write, 2);
    EXPECT_TRUE(Write(*file, 1, "1"));
    EXPECT_FALSE(Write(*file, 2, "2"));
    EXPECT_TRUE(Write(*file, 2, "3"));
    EXPECT_EQ(files.Calls(Operation::Write), 4);
    EXPECT_EQ(files.Text("/a"), "013");

    files.FailFrom(Operation::Read, 1);
    EXPECT_EQ(Read(*file, 0, 1), "(failed)");
    EXPECT_EQ(Read(*file, 0, 1), "(failed)");
    files.FailNothing();
    EXPECT_EQ(Read(*file, 0, 1), "0");

    files.FailNth(Operation::Create, 1);
    EXPECT_EQ(files.CreateUniqueFile("/", "nct"), "");
    files.FailNth(Operation::Open, 1);
    EXPECT_FALSE(files.OpenForReading("/a"));
    EXPECT_EQ(files.OpenFiles(), 1);
}

TEST(MemoryFiles, RunOutOfRoomAsADiskDoes) {
    MemoryFileSystem files;
    files.SetFreeSpace(6);
    const auto file = files.Create("/a");
    EXPECT_TRUE(Write(*file, 0, "abcd"));
    EXPECT_TRUE(Write(*file, 0, "ABCD")) << "takes no new room";
    EXPECT_FALSE(Write(*file, 3, "defgh"));
    EXPECT_EQ(files.Text("/a"), "ABCdef") << "what fitted is there";
    files.SetFreeSpace(std::nullopt);
    EXPECT_TRUE(Write(*file, 3, "defgh"));
    EXPECT_EQ(files.Text("/a"), "ABCdefgh");
}

TEST(MemoryFiles, RefuseAPathAndWhatIsBelowIt) {
    MemoryFileSystem files;
    files.AddFile("/locked/a", "x");
    files.AddFile("/lockedtoo", "x");
    files.Refuse("/locked/");
    EXPECT_FALSE(files.OpenForReading("/locked/a"));
    EXPECT_FALSE(files.Create("/locked/b"));
    EXPECT_FALSE(files.Remove("/locked/a"));
    EXPECT_EQ(files.CreateUniqueFile("/locked", "nct"), "");
    EXPECT_EQ(files.UsableFolder("/locked"), "");
    EXPECT_TRUE(files.OpenForReading("/lockedtoo"));
}

TEST(MemoryFiles, KnowCdDrivesAndTheLackOfATemporaryFolder) {
    MemoryFileSystem files;
    files.SetCdDrive("/cd");
    EXPECT_TRUE(files.IsOnCdDrive("/cd/track"));
    EXPECT_FALSE(files.IsOnCdDrive("/cdrom"));
    files.SetTemporaryFolder("");
    EXPECT_EQ(files.TemporaryFolder(), "");
}

}  // namespace
