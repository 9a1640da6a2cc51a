#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"

namespace mavrin2::script {

// A point in a sound as people write it: in seconds or in sample frames.
class TimePoint {
public:
    // Reads `1.5` (seconds), `1:30.25` (minutes), `1:02:03.5` (hours) and `66150f` (frames);
    // nothing for anything else. After a larger unit, minutes and seconds are below 60.
    static std::optional<TimePoint> Parse(std::string_view text);

    // To the nearest frame; `rate` is in frames per second.
    std::int64_t Frames(int rate) const;

private:
    TimePoint(double value, bool isFrames) : value_(value), isFrames_(isFrames) {}

    double value_;
    bool isFrames_;
};

// h:mm:ss.mmm, to the nearest millisecond.
std::string DurationText(std::int64_t frames, int rate);

inline constexpr std::string_view kStart = "--start";
inline constexpr std::string_view kEnd = "--end";

// The time that an option gives as `text`. Throws UsageError.
TimePoint TimeOf(std::string_view option, std::string_view text);

// A part of a sound, from the command line.
class TimeRange {
public:
    struct Frames {
        std::int64_t Start;
        std::int64_t End;
    };

    // From --start and --end. Throws UsageError.
    explicit TimeRange(const CommandLine& line);
    // From one option; messages call the range by it.
    TimeRange(TimePoint start, TimePoint end, std::string_view option)
        : start_(start), end_(end), startName_(option), endName_(option) {}

    // FROM-TO, as an option gives it. Throws UsageError.
    static TimeRange Parse(std::string_view option, std::string_view text);

    bool IsGiven() const { return start_ || end_; }

    // In the open document, which messages call `file`. Throws Failure if the range is empty or
    // goes past the document's end.
    Frames In(const Editor& editor, const std::string& file) const;

private:
    std::optional<TimePoint> start_;
    std::optional<TimePoint> end_;
    std::string_view startName_ = kStart;
    std::string_view endName_ = kEnd;
};

}  // namespace mavrin2::script
