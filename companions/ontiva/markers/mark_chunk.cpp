#include "companions/ontiva/markers/mark_chunk.h"

#include <algorithm>
#include <limits>

#include "companions/ontiva/files/numbers.h"
#include "companions/ontiva/info/text_encoding.h"

namespace mavrin2::ontiva {
namespace {

constexpr auto kOrder = std::endian::big;
constexpr std::size_t kFixedSize = 7;  // identifier, position, length of the label

}  // namespace

std::vector<Marker> ReadMarks(std::string_view content) {
    std::vector<Marker> markers;
    const auto count = GetNumber<std::uint16_t>(content, 0, kOrder);
    std::size_t start = 2;
    while (markers.size() < count && start + kFixedSize <= content.size()) {
        constexpr std::uint32_t kMost = std::numeric_limits<std::int32_t>::max();
        Marker marker;
        marker.Position = static_cast<std::int32_t>(
            std::min(GetNumber<std::uint32_t>(content, start + 2, kOrder), kMost));
        const std::size_t length = static_cast<std::uint8_t>(content[start + kFixedSize - 1]);
        marker.Label = TextOf(content.substr(start + kFixedSize, length));
        markers.push_back(std::move(marker));
        // Length and label together are padded to an even number of bytes.
        start += kFixedSize + length + (length % 2 == 0 ? 1 : 0);
    }
    return markers;
}

std::string RenderMarks(const std::vector<Marker>& markers) {
    std::string content;
    const std::size_t count = std::min(markers.size(), kMostMarks);
    AddNumber(content, static_cast<std::uint16_t>(count), kOrder);
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view label = Cut(markers[i].Label, kLongestMarkLabel);
        AddNumber(content, static_cast<std::uint16_t>(i + 1), kOrder);
        AddNumber(content, static_cast<std::uint32_t>(markers[i].Position), kOrder);
        content.push_back(static_cast<char>(label.size()));
        content.append(label);
        if (label.size() % 2 == 0) content.push_back('\0');
    }
    return content;
}

}  // namespace mavrin2::ontiva
