#include <gtest/gtest.h>
#include <process.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/automation.h"
#include "platform/memory/memory_file_system.h"
#include "platform/windows/clipboard.h"
#include "tests/platform/file_worlds.h"
#include "tests/platform/system_clipboard.h"
#include "tests/support/scratch_folder.h"

namespace mavrin2::tests {

std::shared_ptr<platform::SoundClipboard> EmptySystemClipboard() {
    ::OpenClipboard(nullptr);
    ::EmptyClipboard();
    ::CloseClipboard();
    return platform::WindowsClipboard();
}

}  // namespace mavrin2::tests

namespace {

using mavrin2::platform::MemoryFileSystem;
using mavrin2::platform::SoundClipboard;
using mavrin2::platform::WindowsClipboard;
using mavrin2::tests::Read;
using mavrin2::tests::ScratchFolder;

// A program that knows nothing of this project; it is beside the tests.
std::wstring Client() {
    wchar_t name[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, name, MAX_PATH);
    return std::filesystem::path(name).parent_path() / "clipboard_client.exe";
}

template <class... Words>
int RunClient(const Words*... words) {
    return static_cast<int>(::_wspawnl(_P_WAIT, Client().c_str(), L"client", words..., nullptr));
}

SoundClipboard::PutOutcome Put(std::string_view text) {
    MemoryFileSystem files;
    files.AddFile("/sound", text);
    return WindowsClipboard()->Put(*files.OpenForReading("/sound"));
}

TEST(ClipboardOnWindows, ExchangesSoundWithOtherPrograms) {
    const ScratchFolder folder;
    const auto file = folder.Path() / "sound.wav";
    const std::string sound = "RIFF " + std::string(100'000, '\0') + "end";
    std::ofstream(file, std::ios::binary) << sound;
    ASSERT_EQ(RunClient(L"put", file.c_str()), 0);
    {
        const auto open = WindowsClipboard()->Open();
        ASSERT_TRUE(open);
        EXPECT_EQ(Read(*open, 0, sound.size()), sound);
    }
    ASSERT_EQ(Put("RIFF ours"), SoundClipboard::PutOutcome::Done);
    ASSERT_EQ(RunClient(L"get", file.c_str()), 0);
    std::ifstream written(file, std::ios::binary);
    const std::string got((std::istreambuf_iterator<char>(written)), {});
    EXPECT_EQ(got.substr(0, 9), "RIFF ours");
    ASSERT_EQ(RunClient(L"text"), 0);
    EXPECT_FALSE(WindowsClipboard()->Open());
}

TEST(ClipboardOnWindows, IsUnavailableWhileAnotherProgramHasItOpen) {
    ASSERT_EQ(Put("RIFF ours"), SoundClipboard::PutOutcome::Done);
    std::FILE* const client = ::_wpopen((Client() + L" hold").c_str(), L"r");
    ASSERT_TRUE(client);
    EXPECT_NE(std::fgetc(client), EOF) << "it has the clipboard from now on";
    EXPECT_EQ(Put("RIFF other"), SoundClipboard::PutOutcome::Unavailable);
    EXPECT_FALSE(WindowsClipboard()->Open());
    EXPECT_EQ(::_pclose(client), 0);
    const auto open = WindowsClipboard()->Open();
    ASSERT_TRUE(open);
    EXPECT_EQ(Read(*open, 0, 9), "RIFF ours");
}

}  // namespace
