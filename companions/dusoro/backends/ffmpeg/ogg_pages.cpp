#include "companions/dusoro/backends/ffmpeg/ogg_pages.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <span>
#include <string>

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

bool EndsAsOgg(platform::File& file) {
    constexpr std::int64_t kLargestPage = 65307;
    constexpr std::size_t kFlags = 5;
    constexpr int kLastOfStream = 4;
    const std::int64_t length = file.Length().value_or(0);
    std::string tail(static_cast<std::size_t>(std::min(length, kLargestPage)), '\0');
    const auto start = length - static_cast<std::int64_t>(tail.size());
    if (file.Read(start, std::as_writable_bytes(std::span(tail))) != tail.size()) return false;
    const std::size_t page = tail.rfind("OggS");
    return page != std::string::npos && page + kFlags < tail.size() &&
           (tail[page + kFlags] & kLastOfStream) != 0;
}

}  // namespace mavrin2::dusoro
