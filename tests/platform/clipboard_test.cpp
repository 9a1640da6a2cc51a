#include "platform/clipboard.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_clipboard.h"
#include "tests/platform/file_worlds.h"
#include "tests/platform/system_clipboard.h"

namespace {

using namespace mavrin2::platform;
using mavrin2::tests::Read;
using PutOutcome = SoundClipboard::PutOutcome;

std::shared_ptr<SoundClipboard> EmptyMemoryClipboard() {
    return std::make_shared<MemoryClipboard>();
}

class SoundClipboards : public testing::TestWithParam<std::shared_ptr<SoundClipboard> (*)()> {
protected:
    PutOutcome Put(std::string_view text) {
        files_.AddFile("/sound", text);
        return clipboard_->Put(*files_.OpenForReading("/sound"));
    }

    MemoryFileSystem files_;
    std::shared_ptr<SoundClipboard> clipboard_ = GetParam()();
};

INSTANTIATE_TEST_SUITE_P(Adapters, SoundClipboards,
                         testing::Values(mavrin2::tests::EmptySystemClipboard,
                                         EmptyMemoryClipboard));

TEST_P(SoundClipboards, HoldTheWholeOfTheLastSoundThatWasPut) {
    EXPECT_FALSE(clipboard_->Open());
    const std::string large(3'000'001, 'x');
    for (const std::string& content :
         {std::string("RIFF first"), large, std::string("RIFF last")}) {
        EXPECT_EQ(Put(content), PutOutcome::Done);
        const auto sound = clipboard_->Open();
        ASSERT_TRUE(sound);
        EXPECT_GE(sound->Length(), static_cast<std::int64_t>(content.size()));
        EXPECT_TRUE(Read(*sound, 0, content.size()) == content);
        EXPECT_EQ(Read(*sound, 5, 2), content.substr(5, 2));
        EXPECT_FALSE(sound->Write(0, mavrin2::tests::BytesOf("y")));
    }
}

TEST_P(SoundClipboards, KeepTheirSoundWhenAnotherCannotBeRead) {
    ASSERT_EQ(Put("RIFF first"), PutOutcome::Done);
    EXPECT_EQ(Put(""), PutOutcome::NotRead);
    files_.FailNth(MemoryFileSystem::Operation::Read, 1);
    EXPECT_EQ(Put("RIFF other"), PutOutcome::NotRead);
    const auto sound = clipboard_->Open();
    EXPECT_EQ(Read(*sound, 0, 10), "RIFF first");
}

}  // namespace
