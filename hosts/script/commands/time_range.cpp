#include "hosts/script/commands/time_range.h"

#include "hosts/script/commands/failure.h"

namespace mavrin2::script {
namespace {

std::optional<TimePoint> ValueOf(const CommandLine& line, std::string_view option) {
    const auto text = line.Value(option);
    return text ? std::optional(TimeOf(option, *text)) : std::nullopt;
}

}  // namespace

TimePoint TimeOf(std::string_view option, std::string_view text) {
    const auto time = TimePoint::Parse(text);
    if (!time)
        throw UsageError(std::string(option) + " " + std::string(text) +
                         ": not a time; write 1.5, 1:30.25 or 66150f");
    return *time;
}

TimeRange::TimeRange(const CommandLine& line)
    : start_(ValueOf(line, kStart)), end_(ValueOf(line, kEnd)) {}

TimeRange::Frames TimeRange::In(const Editor& editor, const std::string& file) const {
    const int length = editor.Frames();
    const int rate = editor.Rate();
    const Frames range{start_ ? start_->Frames(rate) : 0, end_ ? end_->Frames(rate) : length};
    if (range.Start > length || range.End > length)
        throw Failure(file, std::string(range.Start > length ? startName_ : endName_) +
                                " lies behind its end at " + DurationText(length, rate) + " (" +
                                std::to_string(length) + "f)");
    if (range.Start >= range.End)
        throw Failure(file, "Nothing lies " + (startName_ == endName_
                                                   ? "in " + std::string(startName_)
                                                   : std::string("between --start and --end")));
    return range;
}

}  // namespace mavrin2::script
