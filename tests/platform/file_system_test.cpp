// What every file system has to keep to.

#include <gtest/gtest.h>

#include <set>

#include "tests/platform/file_worlds.h"

namespace {

using mavrin2::tests::MemoryWorld;
using mavrin2::tests::Read;
using mavrin2::tests::SystemWorld;
using mavrin2::tests::Write;

template <typename World>
class FileSystems : public testing::Test {
protected:
    mavrin2::platform::FileSystem& Files() { return world_.Files(); }
    std::filesystem::path At(std::string_view name) const { return world_.Folder() / name; }
    void Make(std::string_view name, std::string_view text) {
        const auto file = Files().Create(At(name));
        ASSERT_TRUE(file && Write(*file, 0, text));
    }
    std::string Content(std::string_view name) {
        const auto file = Files().OpenForReading(At(name));
        return file ? Read(*file, 0, 1000) : "(none)";
    }

    World world_;
};

using Worlds = testing::Types<SystemWorld, MemoryWorld>;
TYPED_TEST_SUITE(FileSystems, Worlds);

TYPED_TEST(FileSystems, ReadWhatWasWrittenUpToTheEnd) {
    const auto file = this->Files().Create(this->At("a"));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Length(), 0);
    EXPECT_TRUE(Write(*file, 0, "hello"));
    EXPECT_TRUE(Write(*file, 8, "!"));
    EXPECT_TRUE(Write(*file, 0, "")) << "nothing is written at once";
    EXPECT_EQ(file->Length(), 9);
    EXPECT_EQ(Read(*file, 0, 100), std::string("hello\0\0\0!", 9)) << "gaps are zero";
    EXPECT_EQ(Read(*file, 7, 1), std::string(1, '\0'));
    EXPECT_EQ(Read(*file, 9, 5), "");
    EXPECT_EQ(Read(*file, 1000, 5), "");
    EXPECT_EQ(Read(*file, -1, 5), "(failed)");
    EXPECT_FALSE(Write(*file, -1, "x"));
}

TYPED_TEST(FileSystems, OpenOnlyWhatIsThereAndOnlyAsAsked) {
    EXPECT_FALSE(this->Files().OpenForReading(this->At("a")));
    EXPECT_FALSE(this->Files().OpenForUpdate(this->At("a")));
    EXPECT_FALSE(this->Files().Create(this->At("missing/a")));
    this->Make("a", "old");
    EXPECT_FALSE(Write(*this->Files().OpenForReading(this->At("a")), 0, "x"));
    EXPECT_TRUE(Write(*this->Files().OpenForUpdate(this->At("a")), 1, "new"));
    EXPECT_EQ(this->Content("a"), "onew");
    EXPECT_FALSE(this->Files().OpenForReading(this->At("a"))->Truncate(2));
    EXPECT_TRUE(this->Files().OpenForUpdate(this->At("a"))->Truncate(2));
    EXPECT_EQ(this->Content("a"), "on");
    EXPECT_EQ(this->Files().Create(this->At("a"))->Length(), 0) << "in place of the old one";
    this->world_.AddFolder(this->At("folder"));
    EXPECT_FALSE(this->Files().OpenForReading(this->At("folder")));
    EXPECT_FALSE(this->Files().OpenForUpdate(this->At("folder")));
    EXPECT_FALSE(this->Files().Create(this->At("folder")));
}

TYPED_TEST(FileSystems, MakeUniqueFilesWithNamesOfOneForm) {
    std::set<std::filesystem::path> names;
    for (int i = 0; i < 50; ++i) {
        const auto path = this->Files().CreateUniqueFile(this->At(""), "nct");
        ASSERT_EQ(path.parent_path(), this->world_.Folder());
        const std::string name = path.filename().string();
        ASSERT_TRUE(name.starts_with("nct") && name.ends_with(".tmp")) << name;
        const std::string digits = name.substr(3, name.size() - 7);
        EXPECT_FALSE(digits.empty());
        EXPECT_EQ(digits.find_first_not_of("0123456789abcdefABCDEF"), std::string::npos) << name;
        EXPECT_EQ(this->Files().OpenForUpdate(path)->Length(), 0);
        names.insert(path);
    }
    EXPECT_EQ(names.size(), 50u);
    EXPECT_EQ(this->Files().CreateUniqueFile(this->At("missing"), "nct"), "");
    EXPECT_EQ(this->Files().CreateUniqueFile("", "nct"), "") << "never in the current folder";
}

TYPED_TEST(FileSystems, KeepAnOpenFileUsableThatIsRemoved) {
    this->Make("a", "text");
    auto file = this->Files().OpenForUpdate(this->At("a"));
    EXPECT_TRUE(this->Files().Remove(this->At("a")));
    EXPECT_EQ(Read(*file, 0, 10), "text");
    EXPECT_TRUE(Write(*file, 0, "T"));
    // Its name may be taken as long as it is open.
    file.reset();
    EXPECT_EQ(this->Content("a"), "(none)");
    EXPECT_FALSE(this->Files().Remove(this->At("a")));
    this->world_.AddFolder(this->At("folder"));
    EXPECT_FALSE(this->Files().Remove(this->At("folder")));
    EXPECT_TRUE(this->Files().IsFolder(this->At("folder")));
}

TYPED_TEST(FileSystems, ListTheFilesOfOneFolderByBeginningAndEnd) {
    for (const auto* const name : {"nct1.tmp", "nct2.tmp", "nct.tmp", "nctmp", "other.tmp"}) {
        this->Make(name, "x");
    }
    this->world_.AddFolder(this->At("nct3.tmp"));
    this->world_.AddFolder(this->At("below"));
    this->Make("below/nct4.tmp", "x");
    using Paths = std::vector<std::filesystem::path>;
    EXPECT_EQ(this->Files().List(this->world_.Folder(), "nct", ".tmp"),
              (Paths{this->At("nct.tmp"), this->At("nct1.tmp"), this->At("nct2.tmp")}));
    EXPECT_EQ(this->Files().List(this->world_.Folder(), "nctm", "tmp"), Paths())
        << "beginning and end do not share a letter";
    EXPECT_EQ(this->Files().List(this->At("missing"), "", ""), Paths());
}

TYPED_TEST(FileSystems, MakeFoldersAbsoluteAndRefuseWhatIsNone) {
    this->world_.AddFolder(this->At("one/two"));
    this->Make("file", "x");
    EXPECT_EQ(this->Files().UsableFolder(this->At("one")), this->At("one/").string());
    EXPECT_EQ(this->Files().UsableFolder(this->At("one//two/../")), this->At("one/").string());
    EXPECT_EQ(this->Files().UsableFolder(this->At("missing")), "");
    EXPECT_EQ(this->Files().UsableFolder(this->At("file")), "");
    EXPECT_EQ(this->Files().UsableFolder(""), "");
    EXPECT_FALSE(this->Files().IsFolder(this->At("file")));
    EXPECT_FALSE(this->Files().IsFolder(""));
}

TYPED_TEST(FileSystems, HaveATemporaryFolderThatTakesFiles) {
    const auto folder = this->Files().TemporaryFolder();
    ASSERT_FALSE(folder.empty());
    EXPECT_TRUE(folder.has_root_directory() && !folder.has_filename()) << folder;
    const auto file = this->Files().CreateUniqueFile(folder, "nct");
    EXPECT_TRUE(this->Files().Remove(file));
    EXPECT_FALSE(this->Files().IsOnCdDrive(file)) << "nor is what is not there any more";
}

}  // namespace
