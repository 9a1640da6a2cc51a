#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "platform/linux/clipboard.h"
#include "platform/memory/memory_file_system.h"
#include "platform/ports.h"
#include "tests/platform/file_worlds.h"
#include "tests/platform/system_clipboard.h"
#include "tests/support/child_process.h"
#include "tests/support/environment_variable.h"
#include "tests/support/scratch_folder.h"

namespace mavrin2::tests {

std::shared_ptr<platform::SoundClipboard> EmptySystemClipboard() {
    struct Place {
        ScratchFolder Folder;
        std::shared_ptr<platform::SoundClipboard> Clipboard =
            platform::LinuxClipboard({Folder.Path() / "clipboard.wav"});
    };
    const auto place = std::make_shared<Place>();
    return {place, place->Clipboard.get()};
}

}  // namespace mavrin2::tests

namespace {

using mavrin2::platform::LinuxClipboard;
using mavrin2::platform::MemoryFileSystem;
using mavrin2::platform::SoundClipboard;
using mavrin2::tests::ChildProcess;
using mavrin2::tests::EnvironmentVariable;
using mavrin2::tests::Read;
using mavrin2::tests::ScratchFolder;
using mavrin2::tests::Signal;

SoundClipboard::PutOutcome Put(SoundClipboard& clipboard, std::string_view text) {
    MemoryFileSystem files;
    files.AddFile("/sound", text);
    return clipboard.Put(*files.OpenForReading("/sound"));
}

std::string Content(SoundClipboard& clipboard) {
    const auto sound = clipboard.Open();
    return sound ? Read(*sound, 0, static_cast<std::size_t>(*sound->Length())) : "(none)";
}

TEST(ClipboardOnLinux, IsSeenByOtherProcessesOfTheUserWholeOrNotAtAll) {
    const ScratchFolder folder;
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::owner_all);
    const EnvironmentVariable runtime("XDG_RUNTIME_DIR", folder.Path().string());
    Signal started;
    ChildProcess other([&] {
        const auto clipboard = mavrin2::platform::SystemPorts().Clipboard;
        for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
            Put(*clipboard, std::string(300'000 + static_cast<std::size_t>(letter), letter));
            if (letter == 'a') started.Give();
        }
        return 0;
    });
    ASSERT_TRUE(started.Await());
    const auto clipboard = mavrin2::platform::SystemPorts().Clipboard;
    for (int i = 0; i < 50; ++i) {
        const std::string seen = Content(*clipboard);
        ASSERT_EQ(seen.size(), 300'000 + static_cast<std::size_t>(seen.front()));
        ASSERT_EQ(seen.find_first_not_of(seen.front()), std::string::npos);
    }
    other.Kill();
    struct stat status = {};
    ASSERT_EQ(::stat((folder.Path() / "mavrin2-clipboard.wav").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST(ClipboardOnLinux, UsesTheNextFolderWhereTheFirstTakesNothing) {
    const ScratchFolder folder;
    const auto first = folder.Path() / "first";
    const auto second = folder.Path() / "second.wav";
    const auto clipboard = LinuxClipboard({first / "clip.wav", second});
    EXPECT_EQ(Put(*clipboard, "one"), SoundClipboard::PutOutcome::Done);
    EXPECT_EQ(Content(*LinuxClipboard({second})), "one");
    std::filesystem::create_directory(first);
    EXPECT_EQ(Put(*clipboard, "two"), SoundClipboard::PutOutcome::Done);
    EXPECT_EQ(Content(*clipboard), "two");
    EXPECT_FALSE(std::filesystem::exists(second)) << "it would come back with another environment";
    // A folder in the file's place cannot be replaced.
    std::filesystem::remove(first / "clip.wav");
    std::filesystem::create_directories(first / "clip.wav" / "below");
    EXPECT_EQ(Put(*clipboard, "three"), SoundClipboard::PutOutcome::Done);
    EXPECT_EQ(Content(*clipboard), "three");
    EXPECT_EQ(std::ranges::distance(std::filesystem::directory_iterator(first)), 1)
        << "an attempt that failed leaves nothing behind";
    EXPECT_EQ(Put(*LinuxClipboard({}), "four"), SoundClipboard::PutOutcome::Unavailable);
}

TEST(ClipboardOnLinux, DoesNotUseARuntimeFolderThatOthersCanEnter) {
    const ScratchFolder folder;
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::all);
    const EnvironmentVariable runtime("XDG_RUNTIME_DIR", folder.Path().string());
    for (const auto& path : mavrin2::platform::ClipboardFiles())
        EXPECT_NE(path.parent_path(), folder.Path());
}

}  // namespace
