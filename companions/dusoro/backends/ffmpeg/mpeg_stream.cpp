#include "companions/dusoro/backends/ffmpeg/mpeg_stream.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace mavrin2::dusoro {

using formats::MpegHeader;

std::uint32_t BigEndian(const std::uint8_t* bytes, int count) {
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i)
        value = value << 8 | bytes[i];
    return value;
}

std::int64_t EndOfId3(FileWindow& window) {
    std::int64_t offset = 0;
    while (const std::uint8_t* tag = window.At(offset, 10)) {
        if (std::memcmp(tag, "ID3", 3) != 0) break;
        std::int64_t size = 10;
        for (int i = 6; i < 10; ++i)
            size += static_cast<std::int64_t>(tag[i] & 0x7F) << (7 * (9 - i));
        offset += size;
    }
    return offset;
}

std::optional<MpegHeader> MpegHeaderAt(FileWindow& window, std::int64_t offset) {
    const std::uint8_t* bytes = window.At(offset, 4);
    return bytes ? MpegHeader::Parse(bytes) : std::nullopt;
}

std::int64_t FindMpegFrame(FileWindow& window, std::int64_t offset, std::int64_t limit) {
    for (; offset < limit; ++offset) {
        const auto header = MpegHeaderAt(window, offset);
        if (!header) continue;
        const auto next = MpegHeaderAt(window, offset + header->Size);
        if (next && next->Kind == header->Kind) return offset;
    }
    return -1;
}

std::optional<MpegTag> MpegTagAt(FileWindow& window, std::int64_t offset,
                                 const MpegHeader& header) {
    MpegTag tag;
    if (const std::uint8_t* vbri = window.At(offset + 36, 18);
        vbri && std::memcmp(vbri, "VBRI", 4) == 0) {
        tag.Bytes = BigEndian(vbri + 10, 4);
        tag.MpegFrames = BigEndian(vbri + 14, 4);
        return tag;
    }
    constexpr std::size_t kMost = 8 + 4 + 4 + 100 + 4 + 24;
    const std::uint8_t* xing = window.At(offset + header.TagOffset, kMost);
    if (!xing || (std::memcmp(xing, "Xing", 4) != 0 && std::memcmp(xing, "Info", 4) != 0))
        return std::nullopt;
    const std::uint32_t flags = BigEndian(xing + 4, 4);
    const std::uint8_t* field = xing + 8;
    if (flags & 1) tag.MpegFrames = BigEndian(std::exchange(field, field + 4), 4);
    if (flags & 2) tag.Bytes = BigEndian(std::exchange(field, field + 4), 4);
    if (flags & 4) field += 100;
    if (flags & 8) field += 4;
    for (const char* encoder : {"LAME", "Lavf", "Lavc"}) {
        if (std::memcmp(field, encoder, 4) != 0) continue;
        const std::uint32_t both = BigEndian(field + 21, 3);
        tag.Delay = both >> 12;
        tag.Padding = both & 0xFFF;
        tag.ChecksumAt = offset + header.TagOffset + (field - xing) + 28;
    }
    return tag;
}

std::int64_t FirstMpegFrame(FileWindow& window) {
    constexpr std::int64_t kFarthest = 1 << 16;
    const std::int64_t start = EndOfId3(window);
    return FindMpegFrame(window, start, std::min(window.End(), start + kFarthest));
}

bool MpegTag::Fits(std::int64_t bytes) const {
    constexpr std::int64_t kLongestFrame = 1732;
    constexpr std::int64_t kOtherTags = 1 << 16;
    return MpegFrames > 0 && (Bytes == 0 || bytes - Bytes <= bytes / 17) &&
           (MpegFrames + 1) * kLongestFrame + kOtherTags >= bytes;
}

}  // namespace mavrin2::dusoro
