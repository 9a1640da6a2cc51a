// What replacing files has to do on every system.

#include "platform/replacement_file.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_replacement_files.h"
#include "tests/platform/file_worlds.h"

namespace {

using mavrin2::platform::MemoryFileSystem;
using mavrin2::platform::MemoryReplacementFiles;
using mavrin2::platform::ReplacementFiles;
using mavrin2::tests::Read;
using mavrin2::tests::SystemWorld;
using mavrin2::tests::Write;

struct SystemReplacements : SystemWorld {
    std::shared_ptr<ReplacementFiles> Replacements = mavrin2::platform::SystemReplacementFiles();
};

struct MemoryReplacements {
    MemoryReplacements() { Memory->AddFolder(Folder()); }
    mavrin2::platform::FileSystem& Files() { return *Memory; }
    std::filesystem::path Folder() const { return "/work"; }
    void AddFolder(const std::filesystem::path& path) { Memory->AddFolder(path); }

    std::shared_ptr<MemoryFileSystem> Memory = std::make_shared<MemoryFileSystem>();
    std::shared_ptr<ReplacementFiles> Replacements =
        std::make_shared<MemoryReplacementFiles>(Memory);
};

template <typename World>
class Replacements : public testing::Test {
protected:
    std::filesystem::path At(std::string_view name) const { return world_.Folder() / name; }
    void Make(std::string_view name, std::string_view text) {
        const auto file = world_.Files().Create(At(name));
        ASSERT_TRUE(file && Write(*file, 0, text));
    }
    std::string Content(std::string_view name) {
        const auto file = world_.Files().OpenForReading(At(name));
        return file ? Read(*file, 0, 1000) : "(none)";
    }
    auto Create(std::string_view name) { return world_.Replacements->Create(At(name), error_); }
    auto Stage(std::string_view name) { return world_.Replacements->Stage(At(name), error_); }
    std::size_t Files() { return world_.Files().List(world_.Folder(), "", "").size(); }

    World world_;
    std::error_code error_;
};

using Worlds = testing::Types<SystemReplacements, MemoryReplacements>;
TYPED_TEST_SUITE(Replacements, Worlds);

TYPED_TEST(Replacements, TakeTheirNameOnlyWhenTheyAreComplete) {
    this->Make("old", "older");
    for (const char* name : {"old", "new"}) {
        const std::string before = this->Content(name);
        auto file = this->Create(name);
        ASSERT_TRUE(file) << this->error_.message();
        EXPECT_FALSE(this->error_);
        EXPECT_TRUE(Write(*file, 4, "text") && Write(*file, 0, "some"));
        EXPECT_EQ(Read(*file, 2, 4), "mete");
        EXPECT_EQ(file->Length(), 8);
        EXPECT_EQ(this->Content(name), before);
        file.reset();
        EXPECT_EQ(this->Content(name), before) << "given up";

        file = this->Create(name);
        EXPECT_TRUE(Write(*file, 0, "complete"));
        EXPECT_FALSE(file->Commit());
        EXPECT_EQ(this->Content(name), "complete");
        EXPECT_FALSE(Write(*file, 0, "x")) << "it is finished";
        EXPECT_TRUE(file->Commit());
        file.reset();
        EXPECT_EQ(this->Content(name), "complete");
    }
    EXPECT_EQ(this->Files(), 2u) << "nothing else is left";
}

TYPED_TEST(Replacements, LetOthersWriteByAPathToo) {
    this->Make("old.wav", "older");
    for (const char* name : {"old.wav", "new.wav"}) {
        const std::string before = this->Content(name);
        for (const bool commit : {false, true}) {
            auto staged = this->Stage(name);
            ASSERT_TRUE(staged) << this->error_.message();
            EXPECT_TRUE(staged->Commit()) << "there is no file yet";
            EXPECT_EQ(staged->Path().filename(), name);
            EXPECT_TRUE(Write(*this->world_.Files().Create(staged->Path()), 0, "complete"));
            EXPECT_EQ(this->Content(name), before);
            if (commit) {
                EXPECT_FALSE(staged->Commit());
                EXPECT_EQ(this->Content(name), "complete");
            }
            const auto path = staged->Path();
            staged.reset();
            EXPECT_FALSE(this->world_.Files().OpenForReading(path));
            EXPECT_EQ(this->Content(name), commit ? "complete" : before);
        }
    }
    EXPECT_EQ(this->Files(), 2u);
}

TYPED_TEST(Replacements, AreRefusedWhereNoFileCanBe) {
    this->world_.AddFolder(this->At("folder"));
    this->Make("file", "x");
    for (const char* name : {"folder", "missing/a", "file/a", "folder/", ""}) {
        EXPECT_FALSE(this->Create(name)) << name;
        EXPECT_TRUE(this->error_) << name;
        EXPECT_FALSE(this->Stage(name)) << name;
        EXPECT_TRUE(this->error_) << name;
    }
    EXPECT_FALSE(this->world_.Replacements->Create("", this->error_));
    EXPECT_TRUE(this->error_);
    EXPECT_EQ(this->Files(), 1u);
}

}  // namespace
