#pragma once

#include "automation/text.h"
#include "companions/dusoro/file_companion.h"
#include "tests/companions/sound_test.h"

namespace mavrin2::dusoro {

using automation::Bstr;
using Block = automation::SafeArray<std::int16_t>;

// The companion as the editor calls it.
class FileCompanionTest : public SoundTest {
protected:
    HRESULT OpenFile(const std::filesystem::path& path, LONG type = 0) {
        return companion_->OpenSoundFile(Bstr(path.string()).Get(), type, 1);
    }
    HRESULT CreateFile(const std::filesystem::path& path, LONG type = 0) {
        return companion_->CreateSoundFile(Bstr(path.string()).Get(), type);
    }
    HRESULT Write(const Samples& samples) {
        Block block(samples.size());
        const automation::ArrayView<std::int16_t> view(block.Get());
        std::copy(samples.begin(), samples.end(), view.Elements().begin());
        return companion_->WriteBlock(block.Get());
    }
    Samples Read(LONG frames) {
        Block block;
        EXPECT_EQ(companion_->ReadBlock(frames, block.Put()), S_OK);
        EXPECT_NE(block.Get(), nullptr);
        LONG lower = -1;
        LONG upper = 0;
        EXPECT_EQ(SafeArrayGetLBound(block.Get(), 1, &lower), S_OK);
        EXPECT_EQ(lower, 0);
        EXPECT_EQ(SafeArrayGetUBound(block.Get(), 1, &upper), S_OK);
        const automation::ArrayView<std::int16_t> view(block.Get());
        EXPECT_EQ(upper + 1, static_cast<LONG>(view.Elements().size()));
        return {view.Elements().begin(), view.Elements().end()};
    }
    LONG Get(HRESULT (STDMETHODCALLTYPE contracts::IDusoro2::*member)(LONG*)) {
        LONG value = -1;
        EXPECT_EQ((companion_.Get()->*member)(&value), S_OK);
        return value;
    }
    LONG Error() { return Get(&contracts::IDusoro2::GetErrorCode); }
    std::string Text() {
        Bstr text;
        EXPECT_EQ(companion_->GetFormatText(text.Put()), S_OK);
        return text.Utf8();
    }

    automation::ComPtr<FileCompanion> companion_ =
        FileCompanion::Make(FilesOf(platform::SystemPorts().Files));
};

}  // namespace mavrin2::dusoro
