#include "companions/dusoro/backends/ffmpeg/ogg_pages.h"

#include <cstring>
#include <numeric>

#include "companions/dusoro/backends/ffmpeg/file_window.h"

namespace mavrin2::dusoro {

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

}  // namespace mavrin2::dusoro
