extern "C" {
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <array>
#include <cctype>
#include <memory>

#include "companions/backends/backends.h"
#include "companions/ontiva/libraries/libraries.h"
#include "companions/ontiva/markers/exact_marker.h"

namespace mavrin2::ontiva {
namespace {

int RefuseOtherFiles(AVFormatContext*, AVIOContext**, const char*, int, AVDictionary**) {
    return AVERROR(EPERM);
}

// A file as one of FFmpeg's. Nothing in it makes FFmpeg open another.
class Container {
public:
    explicit Container(const ByteSource& file) : file_(file) {
        constexpr int kBufferSize = 1 << 15;
        auto* buffer = static_cast<unsigned char*>(av_malloc(kBufferSize));
        stream_ = avio_alloc_context(buffer, kBufferSize, 0, this, OnRead, nullptr, OnSeek);
        context_ = avformat_alloc_context();
        if (stream_ && context_) {
            context_->pb = stream_;
            context_->io_open = RefuseOtherFiles;
            context_->protocol_whitelist = av_strdup("none");
            // Frees the context when it fails.
            if (avformat_open_input(&context_, "", nullptr, nullptr) < 0) context_ = nullptr;
        }
    }
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;
    ~Container() {
        avformat_close_input(&context_);
        if (stream_) av_freep(&stream_->buffer);
        avio_context_free(&stream_);
    }

    // Null for a file that FFmpeg does not know.
    const AVFormatContext* Context() const { return context_; }
    void Check() const {
        if (failed_) throw FileFault("cannot read the file");
    }

private:
    static int OnRead(void* self, std::uint8_t* target, int count) {
        auto& container = *static_cast<Container*>(self);
        try {
            const std::size_t got = container.file_.Read(
                container.position_,
                {reinterpret_cast<char*>(target), static_cast<std::size_t>(count)});
            container.position_ += static_cast<std::int64_t>(got);
            return got > 0 ? static_cast<int>(got) : AVERROR_EOF;
        } catch (...) {
            container.failed_ = true;
            return AVERROR(EIO);
        }
    }
    static std::int64_t OnSeek(void* self, std::int64_t offset, int whence) {
        auto& container = *static_cast<Container*>(self);
        if ((whence & AVSEEK_SIZE) != 0) return container.file_.Length();
        whence &= ~AVSEEK_FORCE;
        if (whence == SEEK_CUR) offset += container.position_;
        if (whence == SEEK_END) offset += container.file_.Length();
        if (offset < 0) return AVERROR(EINVAL);
        return container.position_ = offset;
    }

    const ByteSource& file_;
    std::int64_t position_ = 0;
    AVIOContext* stream_ = nullptr;
    AVFormatContext* context_ = nullptr;
    bool failed_ = false;
};

struct Named {
    std::string_view Container;  // in upper case
    std::string_view Usual;      // empty for what describes the container
};

constexpr Named kNames[] = {
    {"TRACK", "TRACKNUMBER"},    {"DISC", "DISCNUMBER"}, {"ALBUM_ARTIST", "ALBUMARTIST"},
    {"ENCODED_BY", "ENCODEDBY"}, {"MAJOR_BRAND", ""},    {"MINOR_VERSION", ""},
    {"COMPATIBLE_BRANDS", ""},   {"CREATION_TIME", ""},  {"DURATION", ""},
    {"GAPLESS_PLAYBACK", ""},    {"HANDLER_NAME", ""},   {"VENDOR_ID", ""}};

void AddTexts(Fields& fields, const AVDictionary* texts) {
    const AVDictionaryEntry* entry = nullptr;
    while ((entry = av_dict_get(texts, "", entry, AV_DICT_IGNORE_SUFFIX)) != nullptr) {
        std::string name = entry->key;
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
        const auto* known =
            std::find_if(std::begin(kNames), std::end(kNames),
                         [&](const Named& named) { return named.Container == name; });
        const std::string_view usual = known == std::end(kNames) ? name : known->Usual;
        if (!usual.empty() && fields.All(usual).empty()) fields.Set(usual, entry->value);
    }
}

const char* MimeOf(AVCodecID codec) {
    switch (codec) {
        case AV_CODEC_ID_PNG:
            return "image/png";
        case AV_CODEC_ID_BMP:
            return "image/bmp";
        default:
            return "image/jpeg";
    }
}

std::int64_t Milliseconds(std::int64_t time, AVRational base) {
    return time == AV_NOPTS_VALUE || base.den <= 0 || base.num <= 0
               ? 0
               : av_rescale_q(time, base, {1, 1000});
}

void AddChapters(std::vector<Marker>& markers, const AVFormatContext& context, std::int32_t rate) {
    for (unsigned i = 0; i < context.nb_chapters; ++i) {
        const AVChapter& chapter = *context.chapters[i];
        const AVDictionaryEntry* title = av_dict_get(chapter.metadata, "title", nullptr, 0);
        markers.push_back(
            MarkerOf({Milliseconds(chapter.start, chapter.time_base),
                      Milliseconds(chapter.end, chapter.time_base), title ? title->value : ""},
                     std::nullopt, rate));
    }
}

class AvContainers final : public ContainerLibrary {
public:
    SoundInfo Read(const ByteSource& file) const override {
        av_log_set_level(AV_LOG_QUIET);
        const Container container(file);
        SoundInfo info;
        container.Check();
        const AVFormatContext* context = container.Context();
        if (!context) return info;
        AddTexts(info.Texts, context->metadata);
        std::int32_t rate = 0;
        for (unsigned i = 0; i < context->nb_streams; ++i) {
            const AVStream& stream = *context->streams[i];
            const AVCodecParameters& codec = *stream.codecpar;
            if (codec.codec_type == AVMEDIA_TYPE_AUDIO && rate == 0) {
                rate = codec.sample_rate;
                AddTexts(info.Texts, stream.metadata);
            }
            const AVPacket& picture = stream.attached_pic;
            if ((stream.disposition & AV_DISPOSITION_ATTACHED_PIC) != 0 && picture.size > 0)
                info.Pictures.push_back({3,
                                         MimeOf(codec.codec_id),
                                         {},
                                         std::string(reinterpret_cast<const char*>(picture.data),
                                                     static_cast<std::size_t>(picture.size))});
        }
        AdoptUsualNames(info.Texts);
        if (rate > 0) AddChapters(info.Markers, *context, rate);
        return info;
    }
};

}  // namespace
}  // namespace mavrin2::ontiva

MAVRIN2_BACKEND_ENTRY(ontiva, avformat, ContainerLibrary) {
    static const mavrin2::ontiva::AvContainers containers;
    return &containers;
}
