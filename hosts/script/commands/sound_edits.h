#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/losses.h"
#include "hosts/script/commands/times.h"

namespace mavrin2::script {

inline constexpr std::string_view kDelete = "--delete";
inline constexpr std::string_view kSilence = "--silence";
inline constexpr std::string_view kGain = "--gain";
inline constexpr std::string_view kNormalize = "--normalize";
inline constexpr std::string_view kFade = "--fade";

// What options change in a sound: the part that is kept, deleted and silent ranges, the level, the
// fades at its ends.
class SoundEdits {
public:
    // Throws UsageError.
    explicit SoundEdits(const CommandLine& line);

    // Edits the open document, which messages call `file`. Times are those of the file as it was.
    // True if the selection is what is left of it, which the caller then saves or keeps.
    bool ApplyTo(Editor& editor, const std::string& file, Losses& losses) const;

private:
    void ChangeLevel(Editor& editor, const std::string& file, Losses& losses) const;
    void Fade(Editor& editor) const;

    TimeRange part_;
    std::vector<TimeRange> deleted_;
    std::vector<TimeRange> silent_;
    std::optional<double> gain_;       // percent
    std::optional<double> normalize_;  // percent of full scale
    std::optional<TimePoint> fadeIn_;
    std::optional<TimePoint> fadeOut_;
};

}  // namespace mavrin2::script
