#include "companions/dusoro/backends/ffmpeg/av_output.h"

#include <cstdio>
#include <span>

namespace mavrin2::dusoro {

std::unique_ptr<AvOutput> AvOutput::Create(platform::File& file, const char* muxer) {
    constexpr int kBufferSize = 1 << 16;
    std::unique_ptr<AvOutput> output(new AvOutput(file));
    avformat_alloc_output_context2(&output->context_, nullptr, muxer, nullptr);
    if (!output->context_) return nullptr;
    auto* buffer = static_cast<unsigned char*>(av_malloc(kBufferSize));
    if (buffer)
        output->stream_ =
            avio_alloc_context(buffer, kBufferSize, 1, output.get(), nullptr, Write, Seek);
    if (!output->stream_) {
        av_free(buffer);
        return nullptr;
    }
    output->context_->pb = output->stream_;
    output->context_->flags |= AVFMT_FLAG_CUSTOM_IO;
    return output;
}

AvOutput::~AvOutput() {
    avformat_free_context(context_);
    if (stream_) av_freep(&stream_->buffer);
    avio_context_free(&stream_);
}

bool AvOutput::Complete() {
    avio_flush(stream_);
    return !failed_;
}

int AvOutput::Write(void* self, std::uint8_t* source, int count) {
    auto& output = *static_cast<AvOutput*>(self);
    const auto bytes = std::as_bytes(std::span(source, static_cast<std::size_t>(count)));
    output.failed_ = output.failed_ || !output.file_.Write(output.position_, bytes);
    if (output.failed_) return AVERROR(EIO);
    output.position_ += count;
    return count;
}

std::int64_t AvOutput::Seek(void* self, std::int64_t offset, int whence) {
    auto& output = *static_cast<AvOutput*>(self);
    const auto length = output.file_.Length();
    if ((whence & AVSEEK_SIZE) != 0) return length ? *length : AVERROR(ENOSYS);
    whence &= ~AVSEEK_FORCE;
    if (whence == SEEK_CUR) offset += output.position_;
    if (whence == SEEK_END) offset += length.value_or(0);
    if (offset < 0) return AVERROR(EINVAL);
    return output.position_ = offset;
}

}  // namespace mavrin2::dusoro
