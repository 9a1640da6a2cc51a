#include "companions/dusoro/backends/ffmpeg/frame_check.h"

extern "C" {
#include <libavutil/crc.h>
}

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "companions/dusoro/backends/ffmpeg/mpeg_stream.h"

namespace mavrin2::dusoro {
namespace {

constexpr std::int64_t kBlock = 1 << 16;

bool Has(FileWindow& window, std::int64_t offset, std::string_view text) {
    const std::uint8_t* bytes = window.At(offset, text.size());
    return bytes && std::memcmp(bytes, text.data(), text.size()) == 0;
}

// What programs put after the last frame.
bool IsTag(FileWindow& window, std::int64_t offset) {
    constexpr std::array<std::string_view, 4> kTags = {"TAG", "APETAGEX", "LYRICSBEGIN", "ID3"};
    return std::ranges::any_of(kTags, [&](auto tag) { return Has(window, offset, tag); });
}

// Whether nothing but zeros follows, with which some programs fill files up.
bool IsPadding(FileWindow& window, std::int64_t offset) {
    while (offset < window.End()) {
        const std::int64_t count = std::min(kBlock, window.End() - offset);
        const std::uint8_t* bytes = window.At(offset, static_cast<std::size_t>(count));
        if (!bytes || std::any_of(bytes, bytes + count, [](auto byte) { return byte != 0; }))
            return false;
        offset += count;
    }
    return true;
}

// Nothing where a part of it is not there.
std::optional<std::uint32_t> Checksum(FileWindow& window, std::int64_t start, std::int64_t end) {
    const AVCRC* table = av_crc_get_table(AV_CRC_16_ANSI_LE);
    std::uint32_t sum = 0;
    while (start < end) {
        const std::int64_t count = std::min(kBlock, end - start);
        const std::uint8_t* bytes = window.At(start, static_cast<std::size_t>(count));
        if (!bytes) return std::nullopt;
        sum = av_crc(table, sum, bytes, static_cast<std::size_t>(count));
        start += count;
    }
    return sum;
}

// An APE tag of such a program says how to undo what it has done to the frames.
bool LevelWasChanged(FileWindow& window) {
    constexpr std::string_view kUndo = "MP3GAIN_UNDO";
    const std::int64_t count = std::min(kBlock, window.End());
    const std::uint8_t* bytes = window.At(window.End() - count, static_cast<std::size_t>(count));
    return bytes && std::search(bytes, bytes + count, kUndo.begin(), kUndo.end()) != bytes + count;
}

// The tag has a checksum for itself too: without it, it would be a damaged tag that judges.
bool DiffersFromTag(FileWindow& window, std::int64_t start, const formats::MpegHeader& header) {
    constexpr std::size_t kFields = 8;
    const auto tag = MpegTagAt(window, start, header);
    if (!tag || tag->ChecksumAt == 0) return false;
    const std::uint8_t* fields = window.At(tag->ChecksumAt, kFields);
    if (!fields) return false;
    const std::int64_t bytes = BigEndian(fields, 4);
    const std::uint32_t sound = BigEndian(fields + 4, 2);
    const std::uint32_t own = BigEndian(fields + 6, 2);
    if (Checksum(window, start, tag->ChecksumAt + 6) != own || bytes <= header.Size) return false;
    const auto found = Checksum(window, start + header.Size, start + bytes);
    return found && *found != sound && !LevelWasChanged(window);
}

struct FrameHeader {
    std::uint32_t Kind;  // the bits that all frames of one stream have in common
    std::int64_t Size;   // bytes
};

std::optional<FrameHeader> MpegFrameAt(FileWindow& window, std::int64_t offset) {
    const auto header = MpegHeaderAt(window, offset);
    if (!header) return std::nullopt;
    return FrameHeader{header->Kind, header->Size};
}

std::optional<FrameHeader> AdtsFrameAt(FileWindow& window, std::int64_t offset) {
    constexpr std::int64_t kHeader = 7;
    const std::uint8_t* bytes = window.At(offset, kHeader);
    if (!bytes || bytes[0] != 0xFF || (bytes[1] & 0xF6) != 0xF0) return std::nullopt;
    const std::int64_t size = (bytes[3] & 3) << 11 | bytes[4] << 3 | bytes[5] >> 5;
    if (size < kHeader) return std::nullopt;
    // Version, checksum or none, profile, rate, channels.
    return FrameHeader{static_cast<std::uint32_t>(bytes[1] & 0xF) << 16 |
                           static_cast<std::uint32_t>(bytes[2] & 0xFD) << 8 | (bytes[3] & 0xC0U),
                       size};
}

using FrameAt = std::optional<FrameHeader> (*)(FileWindow&, std::int64_t);

// The next place where a frame follows a frame; the file's end for none.
std::int64_t FindFrame(FileWindow& window, std::int64_t offset, FrameAt frameAt) {
    for (; offset < window.End(); ++offset) {
        const auto header = frameAt(window, offset);
        if (!header) continue;
        const auto next = frameAt(window, offset + header->Size);
        if (next && next->Kind == header->Kind) return offset;
    }
    return window.End();
}

SourceFaults CheckFrames(FileWindow& window, std::int64_t start, FrameAt frameAt) {
    SourceFaults faults;
    const auto first = frameAt(window, start);
    if (!first) return faults;
    for (std::int64_t offset = start; offset < window.End();) {
        const auto header = frameAt(window, offset);
        if (header && header->Kind == first->Kind) {
            offset += header->Size;
            faults.EndMissing = offset > window.End();
            continue;
        }
        if (IsTag(window, offset) || IsPadding(window, offset)) break;
        offset = FindFrame(window, offset + 1, frameAt);
        if (offset < window.End()) ++faults.DamagedBlocks;
    }
    return faults;
}

}  // namespace

SourceFaults CheckMpeg(platform::File& file) {
    FileWindow window(file);
    const std::int64_t start = FirstMpegFrame(window);
    if (start < 0) return {};
    SourceFaults faults = CheckFrames(window, start, &MpegFrameAt);
    faults.ChecksumDiffers = DiffersFromTag(window, start, *MpegHeaderAt(window, start));
    return faults;
}

SourceFaults CheckAdts(platform::File& file) {
    FileWindow window(file);
    return CheckFrames(window, EndOfId3(window), &AdtsFrameAt);
}

}  // namespace mavrin2::dusoro
