#include "companions/ontiva/markers/vorbis_chapters.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>

#include "companions/ontiva/markers/exact_marker.h"
#include "companions/ontiva/markers/public_marks.h"

namespace mavrin2::ontiva {
namespace {

constexpr std::string_view kPublicName = "CHAPTER";
constexpr std::string_view kExactName = "MAVRIN2_MARKER";
constexpr std::string_view kNoMarkers = "none";
constexpr std::size_t kMostChapters = 999;  // three digits

struct Entry {
    std::optional<std::int64_t> Time;  // milliseconds
    std::string Name;
    std::string Address;
};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// "1:02:03.25": hours and minutes may be missing, the fraction has any number of digits.
std::optional<std::int64_t> ParseTime(std::string_view text) {
    constexpr std::int64_t kMost = std::int64_t{1} << 40;
    std::int64_t whole = 0;
    std::int64_t part = 0;
    std::int64_t fraction = 0;
    std::int64_t unit = 100;  // of the next digit after the point
    bool afterPoint = false;
    if (text.empty() || !IsDigit(text.front())) return std::nullopt;
    for (const char c : text) {
        if (IsDigit(c) && afterPoint) {
            fraction += (c - '0') * unit;
            unit /= 10;
        } else if (IsDigit(c)) {
            part = part * 10 + (c - '0');
        } else if (c == ':' && !afterPoint) {
            whole = (whole + part) * 60;
            part = 0;
        } else if ((c == '.' || c == ',') && !afterPoint) {
            afterPoint = true;
        } else {
            return std::nullopt;
        }
        if (part > kMost || whole > kMost) return std::nullopt;
    }
    return (whole + part) * 1000 + fraction;
}

std::string RenderTime(std::int64_t milliseconds) {
    char text[40];
    const auto of = [&](std::int64_t unit, std::int64_t count) {
        return static_cast<long long>(milliseconds / unit % count);
    };
    std::snprintf(text, sizeof text, "%02lld:%02lld:%02lld.%03lld",
                  static_cast<long long>(milliseconds / 3600000), of(60000, 60), of(1000, 60),
                  of(1, 1000));
    return text;
}

std::string NumberedName(std::size_t number) {
    char text[24];
    std::snprintf(text, sizeof text, "CHAPTER%03zu", number);
    return text;
}

// The number in a name such as CHAPTER001NAME, and what follows it.
std::optional<std::pair<int, std::string_view>> SplitName(std::string_view name) {
    if (!name.starts_with(kPublicName)) return std::nullopt;
    name.remove_prefix(kPublicName.size());
    constexpr std::size_t kMostDigits = 6;
    const auto* const end = std::find_if_not(name.begin(), name.end(), IsDigit);
    const auto digits = static_cast<std::size_t>(end - name.begin());
    if (digits == 0 || digits > kMostDigits) return std::nullopt;
    int number = 0;
    for (const char c : name.substr(0, digits))
        number = number * 10 + (c - '0');
    return std::pair{number, name.substr(digits)};
}

std::map<int, Entry> TakeEntries(Fields& comments) {
    std::map<int, Entry> entries;
    std::vector<std::string> names;
    for (const auto& [name, values] : comments.Entries()) {
        const auto split = SplitName(name);
        if (!split || values.empty()) continue;
        const auto& [number, rest] = *split;
        if (rest.empty())
            entries[number].Time = ParseTime(values.front());
        else if (rest == "NAME")
            entries[number].Name = values.front();
        else if (rest == "URL")
            entries[number].Address = values.front();
        else
            continue;
        names.push_back(name);
    }
    for (const std::string& name : names)
        comments.Erase(name);
    return entries;
}

PublicList ChapterList(std::int32_t rate) {
    return {[rate](const Marker& marker) {
                return PublicMark{ToMilliseconds(marker.Position, rate), marker.Label};
            },
            [rate](std::int64_t milliseconds) { return ToFrames(milliseconds, rate); },
            kMostChapters};
}

}  // namespace

std::vector<Marker> TakeVorbisChapters(Fields& comments, std::int32_t rate, bool& found) {
    std::vector<Marker> exact;
    const Fields::Values lines = comments.All(kExactName);
    for (const std::string& line : lines)
        if (auto marker = ParseExact(line)) exact.push_back(std::move(*marker));
    comments.Erase(kExactName);

    std::vector<PublicMark> list;
    std::vector<std::string> addresses;
    for (auto& [number, entry] : TakeEntries(comments)) {
        if (!entry.Time) continue;
        list.push_back({*entry.Time, std::move(entry.Name)});
        addresses.push_back(std::move(entry.Address));
    }
    found = !list.empty() || !lines.empty();
    auto markers = Reconcile(list, std::move(exact), ChapterList(rate));
    for (std::size_t i = 0; i < addresses.size(); ++i)
        if (markers[i].Text.empty()) markers[i].Text = std::move(addresses[i]);
    return markers;
}

void AddVorbisChapters(Fields& comments, const std::vector<Marker>& markers, std::int32_t rate,
                       bool mention) {
    const PublicList list = ChapterList(rate);
    Fields::Values lines;
    for (std::size_t i = 0; i < markers.size(); ++i) {
        lines.push_back(RenderExact(markers[i]));
        if (i >= kMostChapters) continue;
        const PublicMark mark = list.Of(markers[i]);
        comments.SetAll(NumberedName(i + 1), {RenderTime(mark.Position)});
        comments.SetAll(NumberedName(i + 1) + "NAME", {mark.Label});
    }
    if (lines.empty() && mention) lines.emplace_back(kNoMarkers);
    comments.SetAll(kExactName, std::move(lines));
}

}  // namespace mavrin2::ontiva
