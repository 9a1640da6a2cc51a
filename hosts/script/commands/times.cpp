#include "hosts/script/commands/times.h"

#include <algorithm>
#include <charconv>
#include <cinttypes>
#include <cmath>
#include <cstdio>

#include "hosts/script/commands/command.h"

namespace mavrin2::script {
namespace {

// More than any sound needs, and far from the limits of the types.
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

std::optional<TimePoint> ValueOf(const CommandLine& line, std::string_view option) {
    const auto text = line.Value(option);
    return text ? std::optional(TimeOf(option, *text)) : std::nullopt;
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

TimePoint TimeOf(std::string_view option, std::string_view text) {
    const auto time = TimePoint::Parse(text);
    if (!time)
        throw UsageError("invalid time '" + std::string(text) + "' for " + std::string(option) +
                         "; try 1.5, 1:30.25 or 66150f");
    return *time;
}

TimeRange::TimeRange(const CommandLine& line)
    : start_(ValueOf(line, kStart)), end_(ValueOf(line, kEnd)) {}

TimeRange TimeRange::Parse(std::string_view option, std::string_view text) {
    const std::size_t dash = text.find('-');
    if (dash == std::string_view::npos)
        throw UsageError("invalid range '" + std::string(text) + "' for " + std::string(option) +
                         "; try 1:30-2:15.5");
    return {TimeOf(option, text.substr(0, dash)), TimeOf(option, text.substr(dash + 1)), option};
}

TimeRange::Frames TimeRange::In(const Editor& editor, const std::string& file) const {
    const int length = editor.Frames();
    const int rate = editor.Rate();
    const Frames range{start_ ? start_->Frames(rate) : 0, end_ ? end_->Frames(rate) : length};
    if (range.Start > length || range.End > length)
        throw Failure(file, std::string(range.Start > length ? startName_ : endName_) +
                                " is past the end at " + DurationText(length, rate) + " (" +
                                std::to_string(length) + "f)");
    if (range.Start >= range.End)
        throw Failure(file, startName_ == endName_ ? std::string(startName_) + " is empty"
                                                   : "there is no sound from --start to --end");
    return range;
}

}  // namespace mavrin2::script
