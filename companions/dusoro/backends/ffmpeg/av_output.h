#pragma once

#include <memory>

#include "companions/dusoro/backends/ffmpeg/av_handles.h"
#include "platform/files.h"

namespace mavrin2::dusoro {

// A file of ours that one of FFmpeg's muxers writes to.
class AvOutput {
public:
    // Null when there is no muxer of that name, or memory. `file` outlives it.
    static std::unique_ptr<AvOutput> Create(platform::File& file, const char* muxer);

    AvOutput(const AvOutput&) = delete;
    AvOutput& operator=(const AvOutput&) = delete;
    ~AvOutput();

    AVFormatContext& Context() const { return *context_; }
    // Whether everything has reached the file so far.
    bool Complete();

private:
    explicit AvOutput(platform::File& file) : file_(file) {}

    static int Write(void* self, std::uint8_t* source, int count);
    static std::int64_t Seek(void* self, std::int64_t offset, int whence);

    platform::File& file_;
    std::int64_t position_ = 0;
    bool failed_ = false;
    AVIOContext* stream_ = nullptr;
    AVFormatContext* context_ = nullptr;
};

}  // namespace mavrin2::dusoro
