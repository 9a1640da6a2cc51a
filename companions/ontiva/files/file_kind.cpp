#include "companions/ontiva/files/file_kind.h"

#include <array>
#include <optional>

#include "companions/formats/mpeg_header.h"
#include "companions/ontiva/files/numbers.h"

namespace mavrin2::ontiva {
namespace {

using namespace std::literals;

// What one frame of a stream of frames says.
struct Frame {
    std::uint32_t Kind;  // what all frames of one stream have in common
    std::int32_t Size;   // bytes
    std::int32_t Rate;   // hertz
};

// A frame of AAC with the header for streams (ADTS).
std::optional<Frame> ParseAac(std::string_view bytes) {
    constexpr std::array<std::int32_t, 13> kRates = {
        96000, 88200, 64000, 48000, 44100, 32000, 24000, 22050, 16000, 12000, 11025, 8000, 7350};
    const auto head = GetNumber<std::uint32_t>(bytes, 0, std::endian::big);
    const std::uint32_t rate = head >> 10 & 15;
    if ((head & 0xFFF60000U) != 0xFFF00000U || rate >= kRates.size()) return std::nullopt;
    const std::uint32_t size = GetNumber<std::uint32_t>(bytes, 3, std::endian::big) >> 13 & 0x1FFF;
    if (size < 7) return std::nullopt;
    return Frame{head & 0xFFFEFC00U, static_cast<std::int32_t>(size), kRates[rate]};
}

std::optional<Frame> FrameAt(std::string_view bytes, std::size_t offset) {
    constexpr std::size_t kHeader = 7;
    if (offset + kHeader > bytes.size()) return std::nullopt;
    bytes.remove_prefix(offset);
    const auto mpeg =
        formats::MpegHeader::Parse(reinterpret_cast<const std::uint8_t*>(bytes.data()));
    if (mpeg) return Frame{mpeg->Kind, mpeg->Size, mpeg->Rate};
    return ParseAac(bytes);
}

bool IsEnd(std::string_view rest) {
    return rest.empty() || rest.starts_with("TAG") || rest.starts_with("APETAGEX");
}

// Whether so many frames of one kind follow each other, or fewer and then the end of the sound.
bool FramesFollow(std::string_view bytes, std::size_t offset, const Frame& first, int wanted) {
    for (int i = 1; i < wanted; ++i) {
        offset += static_cast<std::size_t>(FrameAt(bytes, offset)->Size);
        const auto next = FrameAt(bytes, offset);
        if (!next) return i > 1 && IsEnd(bytes.substr(std::min(offset, bytes.size())));
        if (next->Kind != first.Kind) return false;
    }
    return true;
}

// After a tag there may be other bytes before the first frame. Without one the frames must begin at
// once, and be many: sound without a header can look like a few of them.
RecognizedFile RecognizeFrames(const ByteSource& file, std::int64_t prefix) {
    constexpr std::int64_t kFarthest = 1 << 16;
    constexpr int kAfterTag = 2;
    constexpr int kWithoutTag = 8;
    const std::string bytes = file.Bytes(prefix, kFarthest);
    const std::size_t last = prefix > 0 ? bytes.size() : 1;
    for (std::size_t offset = 0; offset < last; ++offset) {
        const auto frame = FrameAt(bytes, offset);
        if (frame && FramesFollow(bytes, offset, *frame, prefix > 0 ? kAfterTag : kWithoutTag))
            return {FileKind::Mpeg, frame->Rate, prefix};
    }
    return {};
}

// The rate in the description that begins a FLAC stream, 20 bits of it.
std::int32_t FlacRate(std::string_view description) {
    return static_cast<std::int32_t>(GetNumber<std::uint32_t>(description, 10, std::endian::big) >>
                                     12);
}

RecognizedFile RecognizeOgg(std::string_view page) {
    constexpr std::size_t kHeader = 27;
    if (page.size() < kHeader) return {};
    const std::size_t segments = static_cast<std::uint8_t>(page[kHeader - 1]);
    const std::string_view packet = page.substr(std::min(page.size(), kHeader + segments));
    const auto number = [&](std::size_t offset) {
        return static_cast<std::int32_t>(
            GetNumber<std::uint32_t>(packet, offset, std::endian::little));
    };
    if (packet.starts_with("\x01vorbis")) return {FileKind::OggVorbis, number(12), 0};
    // Whatever was encoded, decoders deliver this rate.
    if (packet.starts_with("OpusHead")) return {FileKind::Opus, 48000, 0};
    if (packet.starts_with("Speex   ")) return {FileKind::Speex, number(36), 0};
    if (packet.starts_with("\x7F"
                           "FLAC"))
        return {FileKind::OggFlac,
                FlacRate(packet.substr(std::min<std::size_t>(17, packet.size()))), 0};
    return {};
}

bool IsOther(std::string_view head) {
    constexpr std::string_view kBeginnings[] = {"\x1A\x45\xDF\xA3"sv,
                                                "MPCK"sv,
                                                "MP+"sv,
                                                "MAC "sv,
                                                "wvpk"sv,
                                                "TTA1"sv,
                                                "caff"sv,
                                                "\x30\x26\xB2\x75\x8E\x66\xCF\x11"sv};
    for (const std::string_view beginning : kBeginnings)
        if (head.starts_with(beginning)) return true;
    return head.substr(std::min<std::size_t>(4, head.size())).starts_with("ftyp");
}

std::int64_t PrefixOf(const ByteSource& file) {
    constexpr int kMostTags = 16;
    constexpr std::int64_t kHeader = 10;
    constexpr std::uint8_t kFooter = 0x10;
    std::int64_t prefix = 0;
    for (int i = 0; i < kMostTags; ++i) {
        const std::string head = file.Bytes(prefix, kHeader);
        if (head.size() < std::size_t{kHeader} || !head.starts_with("ID3")) break;
        const auto size = GetNumber<std::uint32_t>(head, 6, std::endian::big);
        if ((size & 0x80808080U) != 0) break;
        prefix += kHeader + std::int64_t{FromSevenBits(size)};
        if ((static_cast<std::uint8_t>(head[5]) & kFooter) != 0) prefix += kHeader;
    }
    return std::min(prefix, file.Length());
}

}  // namespace

RecognizedFile Recognize(const ByteSource& file) {
    constexpr std::int64_t kHead = 512;
    const std::int64_t prefix = PrefixOf(file);
    const std::string bytes = file.Bytes(prefix, kHead);
    const std::string_view head = bytes;
    if (head.starts_with("fLaC"))
        return {FileKind::Flac, FlacRate(head.substr(std::min<std::size_t>(8, head.size()))),
                prefix};
    if (prefix > 0) return RecognizeFrames(file, prefix);

    const std::string_view form = head.substr(std::min<std::size_t>(8, head.size()), 4);
    if ((head.starts_with("RIFF") || head.starts_with("RIFX") || head.starts_with("RF64")) &&
        form == "WAVE")
        return {FileKind::Wave, 0, 0};
    if (head.starts_with("FORM") && (form == "AIFF" || form == "AIFC"))
        return {FileKind::Aiff, 0, 0};
    if (head.starts_with("OggS")) return RecognizeOgg(head);
    if (IsOther(head)) return {FileKind::Other, 0, 0};
    return RecognizeFrames(file, 0);
}

}  // namespace mavrin2::ontiva
