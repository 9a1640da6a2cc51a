#include "companions/dusoro/backends/ffmpeg/av_input.h"

extern "C" {
#include <libavutil/avstring.h>
}

#include <cstdio>

#include "companions/dusoro/backends/ffmpeg/mpeg_length.h"

namespace mavrin2::dusoro {
namespace {

constexpr int kBufferSize = 1 << 16;

int RefuseOtherFiles(AVFormatContext*, AVIOContext**, const char*, int, AVDictionary**) {
    return AVERROR(EPERM);
}

// While it looks for the properties of the streams, FFmpeg tries decoders: those of pictures have
// nothing to do here, and a damaged file need not reach them.
std::string NamesOfSoundDecoders() {
    std::string names;
    void* state = nullptr;
    while (const AVCodec* codec = av_codec_iterate(&state)) {
        if (codec->type != AVMEDIA_TYPE_AUDIO || !av_codec_is_decoder(codec)) continue;
        if (!names.empty()) names += ',';
        names += codec->name;
    }
    return names;
}

}  // namespace

std::unique_ptr<AvInput> AvInput::Open(std::shared_ptr<platform::File> file,
                                       const std::string& extension) {
    std::unique_ptr<AvInput> input(new AvInput(std::move(file)));
    if (!input->PrepareStream() || !input->FindDemuxer(extension) || !input->OpenContext(nullptr))
        return nullptr;
    return input;
}

std::unique_ptr<AvInput> AvInput::OpenAgain(const char* option) const {
    std::unique_ptr<AvInput> input(new AvInput(file_));
    input->demuxer_ = demuxer_;
    if (!input->PrepareStream() || !input->OpenContext(option)) return nullptr;
    return input;
}

AvInput::~AvInput() {
    avformat_close_input(&context_);
    if (stream_) av_freep(&stream_->buffer);
    avio_context_free(&stream_);
}

bool AvInput::IsDemuxer(const char* name) const {
    return av_match_name(name, demuxer_->name) != 0;
}

bool AvInput::PrepareStream() {
    auto* buffer = static_cast<unsigned char*>(av_malloc(kBufferSize));
    if (!buffer) return false;
    stream_ = avio_alloc_context(buffer, kBufferSize, 0, this, Read, nullptr, Seek);
    if (!stream_) av_free(buffer);
    return stream_ != nullptr;
}

bool AvInput::FindDemuxer(const std::string& extension) {
    // A file of a few frames is too short for FFmpeg's own guess, which takes it for a film.
    if (BeginsAsMpeg(*file_)) demuxer_ = av_find_input_format("mp3");
    if (demuxer_) {
        knownByContent_ = true;
        return true;
    }
    if (av_probe_input_buffer2(stream_, &demuxer_, "", nullptr, 0, 0) > 0) {
        knownByContent_ = true;
        return true;
    }
    if (extension.empty() || avio_seek(stream_, 0, SEEK_SET) < 0) return false;
    const std::string name = "sound." + extension;
    return av_probe_input_buffer2(stream_, &demuxer_, name.c_str(), nullptr, 0, 0) > 0;
}

bool AvInput::OpenContext(const char* option) {
    static const std::string soundDecoders = NamesOfSoundDecoders();
    context_ = avformat_alloc_context();
    if (!context_) return false;
    context_->pb = stream_;
    context_->flags |= AVFMT_FLAG_CUSTOM_IO;
    context_->io_open = RefuseOtherFiles;
    context_->protocol_whitelist = av_strdup("none");
    context_->codec_whitelist = av_strdup(soundDecoders.c_str());
    AVDictionary* options = nullptr;
    if (option) av_dict_set(&options, option, "0", 0);
    // Frees the context when it fails.
    const int opened = avformat_open_input(&context_, "", demuxer_, &options);
    av_dict_free(&options);
    return opened >= 0 && avformat_find_stream_info(context_, nullptr) >= 0;
}

int AvInput::Read(void* self, std::uint8_t* target, int count) {
    auto& input = *static_cast<AvInput*>(self);
    const auto got = input.file_->Read(
        input.position_,
        std::as_writable_bytes(std::span(target, static_cast<std::size_t>(count))));
    if (!got) return AVERROR(EIO);
    if (*got == 0) return AVERROR_EOF;
    input.position_ += static_cast<std::int64_t>(*got);
    return static_cast<int>(*got);
}

std::int64_t AvInput::Seek(void* self, std::int64_t offset, int whence) {
    auto& input = *static_cast<AvInput*>(self);
    const auto length = input.file_->Length();
    if ((whence & AVSEEK_SIZE) != 0) return length ? *length : AVERROR(ENOSYS);
    whence &= ~AVSEEK_FORCE;
    if (whence == SEEK_CUR) offset += input.position_;
    if (whence == SEEK_END) offset += length.value_or(0);
    if (offset < 0) return AVERROR(EINVAL);
    return input.position_ = offset;
}

}  // namespace mavrin2::dusoro
