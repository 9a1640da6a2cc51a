#pragma once

#include <span>
#include <string>

#include "platform/clipboard.h"
#include "platform/memory/memory_file_system.h"

namespace mavrin2::platform {

// A clipboard that only its test sees.
class MemoryClipboard final : public SoundClipboard {
public:
    // What another program would do.
    void SetContent(std::string_view bytes) {
        files_.Remove(kPath);
        files_.AddFile(kPath, bytes);
    }
    void Clear() { files_.Remove(kPath); }
    // As if another program kept it open.
    void Refuse(bool refused) { refused_ = refused; }

    PutOutcome Put(File& file) override;
    std::unique_ptr<File> Open() override;

private:
    static constexpr const char* kPath = "/clipboard.wav";

    MemoryFileSystem files_;
    bool refused_ = false;
};

}  // namespace mavrin2::platform
