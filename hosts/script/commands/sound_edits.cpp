#include "hosts/script/commands/sound_edits.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "hosts/script/commands/command.h"
#include "hosts/script/commands/operations.h"

namespace mavrin2::script {
namespace {

std::vector<TimeRange> RangesOf(const CommandLine& line, std::string_view option) {
    std::vector<TimeRange> ranges;
    for (const std::string& text : line.Values(option))
        ranges.push_back(TimeRange::Parse(option, text));
    return ranges;
}

std::optional<double> RealOf(const CommandLine& line, std::string_view option, double least,
                             double most, const char* expected) {
    const auto text = line.Value(option);
    if (!text) return std::nullopt;
    double value = 0;
    const std::string_view digits = std::string_view(*text).substr(text->starts_with('+') ? 1 : 0);
    const char* const end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, value, std::chars_format::fixed);
    if (result.ec != std::errc() || result.ptr != end || !(value >= least && value <= most))
        throw UsageError("invalid value '" + *text + "' for " + std::string(option) + "; try " +
                         expected);
    return value;
}

void Process(Editor& editor, const Operations& operations, const char* name,
             std::initializer_list<double> values, std::int64_t start, std::int64_t end) {
    if (start >= end) return;
    std::string text = name;
    char before = '=';
    for (const double value : values) {
        char number[48];
        std::snprintf(number, sizeof number, "%c%.9g", before, value);
        text += number;
        before = ',';
    }
    OperationCall call = operations.Parse(text);
    editor.Process(operations, call, start, end);
}

// Overlapping ranges as one, in their order.
std::vector<TimeRange::Frames> Merged(std::vector<TimeRange::Frames> ranges) {
    std::ranges::sort(ranges, {}, &TimeRange::Frames::Start);
    std::vector<TimeRange::Frames> merged;
    for (const auto& range : ranges) {
        if (!merged.empty() && range.Start <= merged.back().End)
            merged.back().End = std::max(merged.back().End, range.End);
        else
            merged.push_back(range);
    }
    return merged;
}

}  // namespace

SoundEdits::SoundEdits(const CommandLine& line)
    : part_(line),
      deleted_(RangesOf(line, kDelete)),
      silent_(RangesOf(line, kSilence)),
      normalize_(RealOf(line, kNormalize, 0, 100, "95 (percent, 0 to 100)")) {
    constexpr double kMostDecibels = 40;
    if (const auto decibels = RealOf(line, kGain, -200, kMostDecibels, "-6 (decibels, -200 to 40)"))
        gain_ = 100 * std::pow(10, *decibels / 20);
    if (const auto text = line.Value(kFade)) {
        const std::size_t comma = text->find(',');
        fadeIn_ = TimeOf(kFade, text->substr(0, comma));
        fadeOut_ = comma == std::string::npos ? fadeIn_ : TimeOf(kFade, text->substr(comma + 1));
    }
}

bool SoundEdits::ApplyTo(Editor& editor, const std::string& file, Losses& losses) const {
    // Changed levels begin and end where they were asked to.
    editor.BlendEnds(false);
    TimeRange::Frames kept{0, editor.Frames()};
    if (part_.IsGiven()) kept = part_.In(editor, file);
    std::vector<TimeRange::Frames> deleted;
    for (const TimeRange& range : deleted_)
        deleted.push_back(range.In(editor, file));
    deleted = Merged(deleted);

    for (const TimeRange& range : silent_) {
        const auto [start, end] = range.In(editor, file);
        Process(editor, editor.Transform(), "Silence", {}, start, end);
    }
    // From the last one on, so that the places of the others stay what they are.
    std::ranges::reverse(deleted);
    for (const auto& [start, end] : deleted) {
        const auto moved = [start = start, end = end](std::int64_t at) {
            return at <= start ? at : std::max(at - (end - start), start);
        };
        editor.Delete(start, end);
        kept = {moved(kept.Start), moved(kept.End)};
    }
    if (kept.Start >= kept.End && (part_.IsGiven() || !deleted.empty()))
        throw Failure(file, "nothing is left of the sound");
    bool selection = part_.IsGiven();
    if (selection) editor.Select(kept.Start, kept.End);
    if (selection && (gain_ || normalize_ || fadeIn_)) {
        editor.KeepSelection();
        selection = false;
    }
    ChangeLevel(editor, file, losses);
    Fade(editor);
    return selection;
}

void SoundEdits::ChangeLevel(Editor& editor, const std::string& file, Losses& losses) const {
    const std::int64_t frames = editor.Frames();
    if (gain_) Process(editor, editor.Transform(), "Amplify", {*gain_}, 0, frames);
    losses.SayLimited(editor, file, "by --gain");
    if (normalize_) Process(editor, editor.Transform(), "Normalize", {*normalize_, 0}, 0, frames);
}

void SoundEdits::Fade(Editor& editor) const {
    if (!fadeIn_) return;
    const std::int64_t frames = editor.Frames();
    const std::int64_t in = std::min(fadeIn_->Frames(editor.Rate()), frames);
    const std::int64_t out = std::min(fadeOut_->Frames(editor.Rate()), frames);
    Process(editor, editor.Transform(), "Fade", {0, 100}, 0, in);
    Process(editor, editor.Transform(), "Fade", {100, 0}, frames - out, frames);
}

}  // namespace mavrin2::script
