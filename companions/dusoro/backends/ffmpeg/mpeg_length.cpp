#include "companions/dusoro/backends/ffmpeg/mpeg_length.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "companions/dusoro/backends/ffmpeg/file_window.h"
#include "companions/formats/mpeg_header.h"

namespace mavrin2::dusoro {
namespace {

using formats::MpegHeader;

// The samples that every decoder of layer III is late, beside what the encoder was.
constexpr std::int64_t kDecoderDelay = 529;

std::uint32_t BigEndian(const std::uint8_t* bytes, int count) {
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i)
        value = value << 8 | bytes[i];
    return value;
}

std::int64_t BehindId3(FileWindow& window) {
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

std::optional<MpegHeader> HeaderAt(FileWindow& window, std::int64_t offset) {
    const std::uint8_t* bytes = window.At(offset, 4);
    return bytes ? MpegHeader::Parse(bytes) : std::nullopt;
}

// The next place from `offset` on where a frame follows a frame of the same kind; -1 for none
// before `limit`.
std::int64_t FindFrame(FileWindow& window, std::int64_t offset, std::int64_t limit) {
    for (; offset < limit; ++offset) {
        const auto header = HeaderAt(window, offset);
        if (!header) continue;
        const auto next = HeaderAt(window, offset + header->Size);
        if (next && next->Kind == header->Kind) return offset;
    }
    return -1;
}

struct Tag {
    std::int64_t MpegFrames = 0;  // 0: unknown
    std::int64_t Bytes = 0;       // 0: unknown
    std::int64_t Delay = -1;      // of the encoder; -1: unknown
    std::int64_t Padding = 0;
};

// The tag that encoders put into the first frame.
std::optional<Tag> ReadTag(FileWindow& window, std::int64_t offset, const MpegHeader& header) {
    Tag tag;
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
    }
    return tag;
}

// Files that were joined begin with the tag of the first, and a damaged tag may
// tell any number.
bool TagFits(const Tag& tag, std::int64_t bytes) {
    constexpr std::int64_t kLongestFrame = 1732;
    constexpr std::int64_t kOtherTags = 1 << 16;
    return tag.MpegFrames > 0 && (tag.Bytes == 0 || bytes - tag.Bytes <= bytes / 17) &&
           (tag.MpegFrames + 1) * kLongestFrame + kOtherTags >= bytes;
}

std::int64_t CountSamples(FileWindow& window, std::int64_t offset, std::uint32_t kind) {
    std::int64_t samples = 0;
    while (offset >= 0) {
        const auto header = HeaderAt(window, offset);
        if (header && header->Kind == kind) {
            if (offset + header->Size > window.End()) break;
            samples += header->Frames;
            offset += header->Size;
        } else {
            offset = FindFrame(window, offset + 1, window.End());
        }
    }
    return samples;
}

}  // namespace

bool BeginsAsMpeg(platform::File& file) {
    FileWindow window(file);
    const std::int64_t behind = BehindId3(window);
    return FindFrame(window, behind, behind + 1) >= 0;
}

std::optional<MpegLength> MeasureMpeg(platform::File& file) {
    FileWindow window(file);
    const std::int64_t behind = BehindId3(window);
    constexpr std::int64_t kFarthest = 1 << 16;
    const std::int64_t start =
        FindFrame(window, behind, std::min(window.End(), behind + kFarthest));
    if (start < 0) return std::nullopt;
    const MpegHeader header = *HeaderAt(window, start);

    const std::optional<Tag> tag = ReadTag(window, start, header);
    if (!tag) return MpegLength{CountSamples(window, start, header.Kind), false};
    const std::int64_t dropped = tag->Delay >= 0 ? tag->Delay + kDecoderDelay : 0;
    if (!TagFits(*tag, window.End() - start)) {
        const std::int64_t all = CountSamples(window, start + header.Size, header.Kind);
        return MpegLength{std::max<std::int64_t>(0, all - dropped), false};
    }
    const std::int64_t all = tag->MpegFrames * header.Frames;
    if (tag->Delay < 0) return MpegLength{all, false};
    const std::int64_t padding = std::max<std::int64_t>(0, tag->Padding - kDecoderDelay);
    return MpegLength{std::max<std::int64_t>(0, all - dropped - padding), true};
}

}  // namespace mavrin2::dusoro
