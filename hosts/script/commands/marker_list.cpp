#include "hosts/script/commands/marker_list.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <map>
#include <optional>
#include <tuple>

#include "hosts/script/commands/command.h"

namespace mavrin2::script {
namespace {

std::string OneLine(std::string label) {
    std::ranges::replace_if(
        label, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    return label;
}

// To the nearest frame; nothing unless the text is a time that a sound can have.
std::optional<std::int32_t> FramesOf(std::string_view seconds, std::int32_t rate) {
    double value = 0;
    const char* const end = seconds.data() + seconds.size();
    const auto result = std::from_chars(seconds.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end || !(value >= 0)) return std::nullopt;
    const double frames = std::round(value * rate);
    if (frames > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
    return static_cast<std::int32_t>(frames);
}

std::optional<FileMarker> MarkerOf(std::string_view line, std::int32_t rate) {
    const auto next = [&] {
        const std::size_t tab = std::min(line.find('\t'), line.size());
        const std::string_view part = line.substr(0, tab);
        line.remove_prefix(std::min(tab + 1, line.size()));
        return part;
    };
    const auto start = FramesOf(next(), rate);
    const auto end = FramesOf(next(), rate);
    if (!start || !end || *end < *start) return std::nullopt;
    return FileMarker{*start, *end - *start, std::string(line), {}, {}, {}};
}

using Shown = std::tuple<std::int32_t, std::int32_t, std::string>;

Shown ShownOf(const FileMarker& marker) {
    return {marker.Position, marker.Length, OneLine(marker.Label)};
}

}  // namespace

std::string MarkerLines(std::span<const FileMarker> markers, std::int32_t rate) {
    std::string lines;
    for (const FileMarker& marker : markers) {
        char times[64];
        const double start = marker.Position;
        std::snprintf(times, sizeof times, "%.6f\t%.6f\t", start / rate,
                      (start + marker.Length) / rate);
        lines += times + OneLine(marker.Label) + "\n";
    }
    return lines;
}

std::vector<FileMarker> ReadMarkerList(std::istream& list, const std::string& name,
                                       std::int32_t rate, std::span<const FileMarker> present) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    // Of several that are shown alike, the first comes first.
    std::multimap<Shown, const FileMarker*> unused;
    for (const FileMarker& marker : present)
        unused.emplace(ShownOf(marker), &marker);

    std::vector<FileMarker> markers;
    int number = 0;
    for (std::string line; std::getline(list, line);) {
        if (++number == 1 && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
        if (line.ends_with('\r')) line.pop_back();
        if (line.empty() || line.starts_with('\\')) continue;
        auto marker = MarkerOf(line, rate);
        if (!marker)
            throw Failure(name + ":" + std::to_string(number),
                          "not a marker; try start and end in seconds and a label, with tabs "
                          "between them");
        const auto same = unused.find(ShownOf(*marker));
        if (same != unused.end()) {
            marker = *same->second;
            unused.erase(same);
        }
        markers.push_back(std::move(*marker));
    }
    if (list.bad()) throw Failure(name, "cannot be read");
    return markers;
}

}  // namespace mavrin2::script
