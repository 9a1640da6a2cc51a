// What the system itself brings in: devices, names in any case, other programs' locks.

#include <gtest/gtest.h>

#include "platform/automation.h"
#include "tests/platform/file_worlds.h"

namespace {

using mavrin2::tests::Read;
using mavrin2::tests::SystemWorld;
using mavrin2::tests::Write;
namespace fs = std::filesystem;

class WindowsFiles : public testing::Test {
protected:
    mavrin2::platform::FileSystem& Files() { return world_.Files(); }
    fs::path At(std::string_view name) const { return world_.Folder() / name; }

    SystemWorld world_;
};

TEST_F(WindowsFiles, CarryNamesOfAnyLanguage) {
    const fs::path name = world_.Folder() / L"\u4e2d\u00e4\U0001D11E.wav";
    ASSERT_TRUE(Write(*Files().Create(name), 0, "x"));
    EXPECT_EQ(Files().List(world_.Folder(), "", ".WAV"), std::vector{name})
        << "and their ends in any case";
}

TEST_F(WindowsFiles, AreNotDevices) {
    EXPECT_FALSE(Files().OpenForReading("NUL"));
    EXPECT_FALSE(Files().OpenForUpdate("NUL"));
    EXPECT_FALSE(Files().Create("NUL"));
}

TEST_F(WindowsFiles, LeaveAloneWhatAnotherProgramHoldsOpen) {
    ASSERT_TRUE(Write(*Files().Create(At("a")), 0, "theirs"));
    const HANDLE other = ::CreateFileW(At("a").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                       OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(Files().Create(At("a")));
    EXPECT_FALSE(Files().OpenForUpdate(At("a")));
    EXPECT_FALSE(Files().Remove(At("a")));
    EXPECT_EQ(Read(*Files().OpenForReading(At("a")), 0, 10), "theirs");
    ::CloseHandle(other);
}

TEST_F(WindowsFiles, ResolveARelativeFolderWithoutMovingTheProcess) {
    const auto before = fs::current_path();
    EXPECT_EQ(Files().UsableFolder("."), before / "");
    EXPECT_EQ(Files().UsableFolder(At("./") / "..\\").native().back(), L'\\');
    EXPECT_EQ(fs::current_path(), before);
}

}  // namespace
