#include "companions/dusoro/backends/ffmpeg/ogg_pages.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace mavrin2::dusoro {

bool IsChainedOgg(platform::File& file) {
    constexpr std::size_t kHeader = 27;
    constexpr std::size_t kMostSegments = 255;
    constexpr std::array<std::uint8_t, 5> kMagic = {'O', 'g', 'g', 'S', 0};
    constexpr std::uint8_t kFirstOfStream = 2;
    std::array<std::uint8_t, kHeader + kMostSegments> page{};
    std::int64_t offset = 0;
    bool begun = false;  // all streams that lie beside each other have begun
    while (true) {
        const auto got = file.Read(offset, std::as_writable_bytes(std::span(page))).value_or(0);
        if (got < kHeader || !std::equal(kMagic.begin(), kMagic.end(), page.begin())) return false;
        const std::size_t segments = page[26];
        if (got < kHeader + segments) return false;
        const bool first = (page[5] & kFirstOfStream) != 0;
        if (begun && first) return true;
        begun = !first;
        const auto* sizes = page.data() + kHeader;
        offset +=
            std::accumulate(sizes, sizes + segments, static_cast<std::int64_t>(kHeader + segments));
    }
}

}  // namespace mavrin2::dusoro
