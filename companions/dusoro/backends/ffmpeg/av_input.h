#pragma once

#include <memory>
#include <string>

#include "companions/dusoro/backends/ffmpeg/av_handles.h"
#include "platform/files.h"

namespace mavrin2::dusoro {

// A file of ours opened by one of FFmpeg's demuxers. Nothing written in the file makes it open
// another one: playlists and references to other files lead nowhere.
class AvInput {
public:
    // Finds the demuxer by content, and where that is inconclusive by the name's extension.
    // Null when none is found or it does not accept the file.
    static std::unique_ptr<AvInput> Open(std::shared_ptr<platform::File> file,
                                         const std::string& extension);

    // The same file once more, from its beginning. `option` of the demuxer, if any, is set to 0.
    std::unique_ptr<AvInput> OpenAgain(const char* option = nullptr) const;

    AvInput(const AvInput&) = delete;
    AvInput& operator=(const AvInput&) = delete;
    ~AvInput();

    AVFormatContext& Context() const { return *context_; }
    platform::File& File() const { return *file_; }
    bool KnownByContent() const { return knownByContent_; }
    // Whether this is the demuxer's name, or one of them.
    bool IsDemuxer(const char* name) const;

private:
    explicit AvInput(std::shared_ptr<platform::File> file) : file_(std::move(file)) {}
    bool PrepareStream();
    bool FindDemuxer(const std::string& extension);
    bool OpenContext(const char* option);

    static int Read(void* self, std::uint8_t* target, int count);
    static std::int64_t Seek(void* self, std::int64_t offset, int whence);

    std::shared_ptr<platform::File> file_;
    std::int64_t position_ = 0;
    AVIOContext* stream_ = nullptr;
    AVFormatContext* context_ = nullptr;
    const AVInputFormat* demuxer_ = nullptr;
    bool knownByContent_ = false;
};

}  // namespace mavrin2::dusoro
