#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/time_text.h"

namespace mavrin2::script {

inline constexpr std::string_view kStart = "--start";
inline constexpr std::string_view kEnd = "--end";

// A point in time that an option gives, written as `text`. Throws UsageError.
TimePoint TimeOf(std::string_view option, std::string_view text);

// A piece of a sound that the command line asks for.
class TimeRange {
public:
    struct Frames {
        std::int64_t Start;
        std::int64_t End;
    };

    // From --start and --end. Throws UsageError.
    explicit TimeRange(const CommandLine& line);
    // From one option, which names it in messages.
    TimeRange(TimePoint start, TimePoint end, std::string_view option)
        : start_(start), end_(end), startName_(option), endName_(option) {}

    bool IsGiven() const { return start_ || end_; }

    // In the open document, which `file` names in messages. Throws Failure when the range is empty
    // or passes the document's end.
    Frames In(const Editor& editor, const std::string& file) const;

private:
    std::optional<TimePoint> start_;
    std::optional<TimePoint> end_;
    std::string_view startName_ = kStart;
    std::string_view endName_ = kEnd;
};

}  // namespace mavrin2::script
