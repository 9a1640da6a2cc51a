#include "companions/dusoro/backends/ffmpeg/ogg_pages.h"

extern "C" {
#include <libavutil/bswap.h>
#include <libavutil/crc.h>
}

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <numeric>
#include <optional>
#include <span>
#include <string_view>

#include "companions/dusoro/backends/ffmpeg/file_window.h"

namespace mavrin2::dusoro {
namespace {

struct OggPage {
    std::int64_t Size = 0;  // bytes
    std::uint32_t Stream = 0;
    std::uint32_t Number = 0;
    bool EndsStream = false;
    bool IsIntact = false;  // its checksum is right
};

constexpr std::string_view kCapture{"OggS\0", 5};

// Whether a page begins with these bytes, if they are there.
bool IsCapture(const std::uint8_t* bytes) {
    return bytes && std::memcmp(bytes, kCapture.data(), kCapture.size()) == 0;
}

std::uint32_t LittleEndian(const std::uint8_t* bytes) {
    return bytes[0] | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16 |
           std::uint32_t{bytes[3]} << 24;
}

// The checksum is that of the page with zeros in its place.
bool HasItsChecksum(std::span<const std::uint8_t> page) {
    constexpr std::size_t kPlace = 22;
    constexpr std::array<std::uint8_t, 4> kZeros{};
    const AVCRC* table = av_crc_get_table(AV_CRC_32_IEEE);
    const auto rest = page.subspan(kPlace + kZeros.size());
    std::uint32_t sum = av_crc(table, 0, page.data(), kPlace);
    sum = av_crc(table, sum, kZeros.data(), kZeros.size());
    sum = av_crc(table, sum, rest.data(), rest.size());
    // The library keeps the bytes of this kind of sum in reverse.
    return av_bswap32(sum) == LittleEndian(page.data() + kPlace);
}

// Nothing where there is no whole page.
std::optional<OggPage> PageAt(FileWindow& window, std::int64_t offset) {
    constexpr std::size_t kHeader = 27;
    constexpr int kLastOfStream = 4;
    const std::uint8_t* header = window.At(offset, kHeader);
    if (!IsCapture(header)) return std::nullopt;
    OggPage page;
    page.EndsStream = (header[5] & kLastOfStream) != 0;
    page.Stream = LittleEndian(header + 14);
    page.Number = LittleEndian(header + 18);
    const std::size_t segments = header[26];
    const std::uint8_t* table = window.At(offset, kHeader + segments);
    if (!table) return std::nullopt;
    const std::size_t size =
        std::accumulate(table + kHeader, table + kHeader + segments, kHeader + segments);
    const std::uint8_t* whole = window.At(offset, size);
    if (!whole) return std::nullopt;
    page.Size = static_cast<std::int64_t>(size);
    page.IsIntact = HasItsChecksum({whole, size});
    return page;
}

// The file's end where no page follows.
std::int64_t FindPage(FileWindow& window, std::int64_t offset) {
    constexpr std::int64_t kStretch = 1 << 16;
    while (offset < window.End()) {
        const std::int64_t count = std::min(kStretch, window.End() - offset);
        const std::uint8_t* bytes = window.At(offset, static_cast<std::size_t>(count));
        if (!bytes) break;
        const std::uint8_t* found =
            std::search(bytes, bytes + count, kCapture.begin(), kCapture.end());
        if (found != bytes + count) return offset + (found - bytes);
        // A part of it may be at the end of this stretch.
        const auto overlap = static_cast<std::int64_t>(kCapture.size()) - 1;
        offset += count > overlap ? count - overlap : count;
    }
    return window.End();
}

}  // namespace

bool IsChainedOgg(platform::File& file) {
    constexpr std::size_t kHeader = 27;
    constexpr std::uint8_t kFirstOfStream = 2;
    FileWindow window(file);
    std::int64_t offset = 0;
    bool begun = false;  // all parallel streams have begun
    while (const std::uint8_t* header = window.At(offset, kHeader)) {
        if (std::memcmp(header, "OggS", 5) != 0) return false;
        const bool first = (header[5] & kFirstOfStream) != 0;
        if (begun && first) return true;
        begun = !first;
        const std::size_t segments = header[26];
        const std::uint8_t* sizes =
            window.At(offset + static_cast<std::int64_t>(kHeader), segments);
        if (!sizes) return false;
        offset +=
            std::accumulate(sizes, sizes + segments, static_cast<std::int64_t>(kHeader + segments));
    }
    return false;
}

SourceFaults CheckOgg(platform::File& file) {
    FileWindow window(file);
    SourceFaults faults;
    std::map<std::uint32_t, std::uint32_t> next;  // page of each stream, by its number
    std::int64_t offset = 0;
    while (offset < window.End()) {
        const auto page = PageAt(window, offset);
        if (!page) {
            faults.EndMissing = faults.EndMissing || IsCapture(window.At(offset, kCapture.size()));
            offset = FindPage(window, offset + 1);
            if (offset < window.End()) ++faults.DamagedBlocks;
            continue;
        }
        const auto [expected, isFirst] = next.try_emplace(page->Stream, page->Number);
        if (!page->IsIntact || (!isFirst && expected->second != page->Number))
            ++faults.DamagedBlocks;
        expected->second = page->Number + 1;
        faults.EndMissing = !page->EndsStream;
        offset += page->Size;
    }
    return faults;
}

}  // namespace mavrin2::dusoro
