#include "companions/dusoro/backends/sndfile/headerless.h"

#include <algorithm>
#include <cstdint>
#include <span>

#include "companions/dusoro/backends/sndfile/sndfile_io.h"

namespace mavrin2::dusoro {
namespace {

int PcmSubtype(Container container, std::int32_t bits) {
    const bool isUnsigned = container == Container::Wav || container == Container::Raw;
    switch (bits) {
        case 8:
            return isUnsigned ? SF_FORMAT_PCM_U8 : SF_FORMAT_PCM_S8;
        case 24:
            return SF_FORMAT_PCM_24;
        case 32:
            return SF_FORMAT_PCM_32;
        default:
            return SF_FORMAT_PCM_16;
    }
}

int SubtypeOf(const OutputFormat& format, Container container) {
    switch (format.Kind) {
        case Coding::Pcm:
            return PcmSubtype(container, format.Bits);
        case Coding::ALaw:
            return SF_FORMAT_ALAW;
        case Coding::MuLaw:
            return SF_FORMAT_ULAW;
        case Coding::MsAdpcm:
            return SF_FORMAT_MS_ADPCM;
        case Coding::ImaAdpcm:
            return SF_FORMAT_IMA_ADPCM;
        case Coding::Gsm:
            return SF_FORMAT_GSM610;
        case Coding::Vox:
            return SF_FORMAT_VOX_ADPCM;
        case Coding::Vorbis:
            return SF_FORMAT_VORBIS;
        case Coding::Opus:
            return SF_FORMAT_OPUS;
        case Coding::Flac:
            return SF_FORMAT_PCM_16;
        case Coding::G721:
            return SF_FORMAT_G721_32;
        case Coding::G723:
            return format.Bits == 5 ? SF_FORMAT_G723_40 : SF_FORMAT_G723_24;
        default:
            return 0;
    }
}

int MajorOf(Container container) {
    switch (container) {
        case Container::Wav:
            return SF_FORMAT_WAV;
        case Container::Aiff:
            return SF_FORMAT_AIFF;
        case Container::Au:
            return SF_FORMAT_AU;
        case Container::Raw:
            return SF_FORMAT_RAW | SF_ENDIAN_LITTLE;
        case Container::Flac:
            return SF_FORMAT_FLAC;
        case Container::Ogg:
            return SF_FORMAT_OGG;
        default:
            return 0;
    }
}

void PutNumber(std::span<std::byte> target, std::uint64_t value) {
    const auto limited = static_cast<std::uint32_t>(std::min<std::uint64_t>(value, UINT32_MAX));
    for (unsigned i = 0; i < 4; ++i)
        target[i] = static_cast<std::byte>(limited >> 8 * i);
}

// What is written to it, in memory.
class Memory final : public platform::File {
public:
    std::optional<std::size_t> Read(std::int64_t, std::span<std::byte>) override { return 0; }
    bool Write(std::int64_t offset, std::span<const std::byte> source) override {
        const auto at = static_cast<std::size_t>(offset);
        Bytes.resize(std::max(Bytes.size(), at + source.size()));
        std::ranges::copy(source, Bytes.begin() + offset);
        return true;
    }
    std::optional<std::int64_t> Length() override {
        return static_cast<std::int64_t>(Bytes.size());
    }

    std::vector<std::byte> Bytes;
};

class Headed final : public platform::File {
public:
    Headed(platform::File& file, std::vector<std::byte> header)
        : file_(file), header_(std::move(header)) {
        constexpr std::size_t kSizeField = 4;
        const auto length = static_cast<std::uint64_t>(file_.Length().value_or(0));
        PutNumber(std::span(header_).last(kSizeField), length);
        PutNumber(std::span(header_).subspan(4, kSizeField), length + header_.size() - 8);
    }

    std::optional<std::size_t> Read(std::int64_t offset, std::span<std::byte> target) override {
        const auto size = static_cast<std::int64_t>(header_.size());
        if (offset >= size) return file_.Read(offset - size, target);
        const auto part = std::span(header_).subspan(static_cast<std::size_t>(offset));
        const std::size_t count = std::min(part.size(), target.size());
        std::ranges::copy(part.first(count), target.begin());
        const auto more = file_.Read(0, target.subspan(count));
        return more ? std::optional(count + *more) : std::nullopt;
    }
    bool Write(std::int64_t, std::span<const std::byte>) override { return false; }
    std::optional<std::int64_t> Length() override {
        const auto length = file_.Length();
        return length ? std::optional(*length + static_cast<std::int64_t>(header_.size()))
                      : std::nullopt;
    }

private:
    platform::File& file_;
    std::vector<std::byte> header_;
};

class Beheaded final : public platform::File {
public:
    Beheaded(platform::File& file, std::size_t header)
        : file_(file), header_(static_cast<std::int64_t>(header)) {}

    std::optional<std::size_t> Read(std::int64_t, std::span<std::byte>) override {
        return std::nullopt;
    }
    bool Write(std::int64_t offset, std::span<const std::byte> source) override {
        const auto hidden = static_cast<std::size_t>(std::clamp<std::int64_t>(
            header_ - offset, 0, static_cast<std::int64_t>(source.size())));
        source = source.subspan(hidden);
        offset += static_cast<std::int64_t>(hidden);
        return source.empty() || file_.Write(offset - header_, source);
    }
    std::optional<std::int64_t> Length() override {
        const auto length = file_.Length();
        return length ? std::optional(*length + header_) : std::nullopt;
    }

private:
    platform::File& file_;
    std::int64_t header_;
};

}  // namespace

int SndfileFormatOf(const OutputFormat& format, Container container) {
    const int subtype = SubtypeOf(format, container);
    const int major = MajorOf(container);
    return subtype == 0 || major == 0 ? 0 : major | subtype;
}

bool NeedsHiddenHeader(const OutputFormat& format, Container container) {
    return container == Container::Raw &&
           (format.Kind == Coding::MsAdpcm || format.Kind == Coding::ImaAdpcm);
}

std::vector<std::byte> WavHeader(const OutputFormat& format) {
    Memory memory;
    SndfileStream stream;
    stream.File = &memory;
    SF_INFO info{};
    info.samplerate = format.Format.Rate;
    info.channels = format.Format.Channels;
    info.format = SndfileFormatOf(format, Container::Wav);
    const SndfileHandle handle(stream.Open(SFM_WRITE, info));
    // Before anything else the file is its header.
    return handle ? memory.Bytes : std::vector<std::byte>();
}

std::unique_ptr<platform::File> WithHeader(platform::File& file, std::vector<std::byte> header) {
    return std::make_unique<Headed>(file, std::move(header));
}

std::unique_ptr<platform::File> WithoutHeader(platform::File& file, std::size_t header) {
    return std::make_unique<Beheaded>(file, header);
}

}  // namespace mavrin2::dusoro
