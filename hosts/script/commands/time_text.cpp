#include "hosts/script/commands/time_text.h"

#include <algorithm>
#include <charconv>
#include <cinttypes>
#include <cmath>
#include <cstdio>

namespace mavrin2::script {
namespace {

// More than any sound holds, and far from the limits of the types.
constexpr std::size_t kMostDigits = 12;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::optional<double> ParseDecimal(std::string_view text) {
    const std::size_t whole = std::min(text.find('.'), text.size());
    if (whole > kMostDigits || std::ranges::count(text, '.') > 1) return std::nullopt;
    if (std::ranges::count_if(text, IsDigit) == 0) return std::nullopt;
    if (!std::ranges::all_of(text, [](char c) { return IsDigit(c) || c == '.'; }))
        return std::nullopt;
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    return value;
}

std::optional<double> ParseWhole(std::string_view text) {
    return text.find('.') == std::string_view::npos ? ParseDecimal(text) : std::nullopt;
}

}  // namespace

std::optional<TimePoint> TimePoint::Parse(std::string_view text) {
    if (text.ends_with('f')) {
        text.remove_suffix(1);
        const auto frames = ParseWhole(text);
        return frames ? std::optional(TimePoint(*frames, true)) : std::nullopt;
    }
    double seconds = 0;
    for (int units = 1; units <= 3; ++units) {
        const std::size_t colon = text.find(':');
        const bool last = colon == std::string_view::npos;
        const auto part = last ? ParseDecimal(text) : ParseWhole(text.substr(0, colon));
        if (!part || (units > 1 && *part >= 60)) return std::nullopt;
        seconds = seconds * 60 + *part;
        if (last) return TimePoint(seconds, false);
        text.remove_prefix(colon + 1);
    }
    return std::nullopt;
}

std::int64_t TimePoint::Frames(int rate) const {
    return std::llround(isFrames_ ? value_ : value_ * rate);
}

std::string DurationText(std::int64_t frames, int rate) {
    const std::int64_t milliseconds =
        rate > 0 ? std::llround(static_cast<double>(frames) * 1000 / rate) : 0;
    char text[40] = {};
    std::snprintf(text, sizeof text, "%" PRId64 ":%02d:%02d.%03d", milliseconds / 3600000,
                  static_cast<int>(milliseconds / 60000 % 60),
                  static_cast<int>(milliseconds / 1000 % 60),
                  static_cast<int>(milliseconds % 1000));
    return text;
}

}  // namespace mavrin2::script
