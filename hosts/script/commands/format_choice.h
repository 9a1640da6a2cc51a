#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/operations.h"
#include "hosts/script/commands/sound_output.h"

namespace mavrin2::script {

inline constexpr std::string_view kLame = "--lame";
inline constexpr std::string_view kBitrate = "--bitrate";
inline constexpr std::string_view kQuality = "--quality";

// The format of an output, if the command line chooses more of it than its extension does.
class FormatChoice {
public:
    // From --format, --lame, --bitrate and --quality. Throws UsageError.
    FormatChoice(const CommandLine& line, const Editor& editor, const OutputTarget& target);

    // For the document as it is now.
    void ApplyTo(const Editor& editor, SoundOutput& output);

private:
    void ApplyBitrate(const Editor& editor) const;
    void ApplyQuality(const Editor& editor) const;
    void Choose(const std::string& format) const;

    Operations formats_;
    std::string extension_;  // of the output, in lower case
    std::optional<std::string> lame_;
    std::optional<OperationCall> call_;
    std::optional<std::int32_t> bitrate_;  // kbit/s
    std::optional<std::int32_t> quality_;
};

}  // namespace mavrin2::script
