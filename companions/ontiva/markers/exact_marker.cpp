#include "companions/ontiva/markers/exact_marker.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <utility>

namespace mavrin2::ontiva {
namespace {

constexpr std::pair<char, char> kEscapes[] = {{'\t', 't'}, {'\n', 'n'}, {'\r', 'r'}, {'\\', '\\'}};

void AddEscaped(std::string& line, std::string_view text) {
    line.push_back('\t');
    for (const char c : text) {
        const auto* escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                          [c](const auto& pair) { return pair.first == c; });
        if (escape == std::end(kEscapes)) {
            line.push_back(c);
        } else {
            line.push_back('\\');
            line.push_back(escape->second);
        }
    }
}

std::string Unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '\\' && i + 1 < text.size()) {
            c = text[++i];
            for (const auto& [character, letter] : kEscapes)
                if (letter == text[i]) c = character;
        }
        plain.push_back(c);
    }
    return plain;
}

// The part before `separator`, which is taken off with it; nothing when there is no such part.
std::optional<std::string_view> Take(std::string_view& line, char separator) {
    const std::size_t end = line.find(separator);
    if (end == std::string_view::npos) return std::nullopt;
    const std::string_view part = line.substr(0, end);
    line.remove_prefix(end + 1);
    return part;
}

bool ParseNumber(std::string_view digits, std::int32_t& number) {
    const char* end = digits.data() + digits.size();
    const auto parsed = std::from_chars(digits.data(), end, number);
    return parsed.ec == std::errc() && parsed.ptr == end;
}

std::int32_t Limited(std::int64_t frames) {
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(frames, 0, std::numeric_limits<std::int32_t>::max()));
}

}  // namespace

std::string RenderExact(const Marker& marker) {
    std::string line = std::to_string(marker.Position) + ' ' + std::to_string(marker.Length);
    for (const std::int32_t number : marker.Numbers)
        line += ' ' + std::to_string(number);
    for (const std::string* text : {&marker.Label, &marker.Note, &marker.Text})
        AddEscaped(line, *text);
    return line;
}

std::optional<Marker> ParseExact(std::string_view line) {
    Marker marker;
    auto numbers = Take(line, '\t');
    const auto label = Take(line, '\t');
    const auto note = Take(line, '\t');
    if (!note) return std::nullopt;
    std::array<std::int32_t, 6> parts{};
    for (std::int32_t& part : parts) {
        const bool last = &part == &parts.back();
        const auto digits = last ? *numbers : Take(*numbers, ' ').value_or(std::string_view());
        if (!ParseNumber(digits, part)) return std::nullopt;
    }
    marker.Position = parts[0];
    marker.Length = parts[1];
    std::copy(parts.begin() + 2, parts.end(), marker.Numbers.begin());
    if (marker.Position < 0 || marker.Length < 0) return std::nullopt;
    marker.Label = Unescaped(*label);
    marker.Note = Unescaped(*note);
    marker.Text = Unescaped(line);
    return marker;
}

std::int64_t ToMilliseconds(std::int64_t frames, std::int32_t rate) {
    return (frames * 1000 + rate / 2) / rate;
}

std::int32_t ToFrames(std::int64_t milliseconds, std::int32_t rate) {
    constexpr auto kMost =
        std::numeric_limits<std::int64_t>::max() / 2 / std::numeric_limits<std::int32_t>::max();
    return Limited((std::clamp<std::int64_t>(milliseconds, 0, kMost) * rate + 500) / 1000);
}

Chapter ChapterOf(const Marker& marker, std::int32_t rate) {
    const std::int64_t end = std::int64_t{marker.Position} + marker.Length;
    return {ToMilliseconds(marker.Position, rate), ToMilliseconds(end, rate), marker.Label};
}

Marker MarkerOf(const Chapter& chapter, const std::optional<Marker>& exact, std::int32_t rate) {
    Marker marker = exact.value_or(Marker());
    marker.Label = chapter.Label;
    const Chapter written = exact ? ChapterOf(*exact, rate) : Chapter{-1, -1, {}};
    const bool moved = chapter.Start != written.Start;
    if (moved) marker.Position = ToFrames(chapter.Start, rate);
    if (moved || chapter.End != written.End)
        marker.Length = chapter.End > chapter.Start
                            ? Limited(std::int64_t{ToFrames(chapter.End, rate)} - marker.Position)
                            : 0;
    return marker;
}

}  // namespace mavrin2::ontiva
