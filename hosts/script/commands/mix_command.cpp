#include <algorithm>
#include <charconv>
#include <optional>
#include <vector>

#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/sound_output.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 mix OUT IN[@GAIN%]... [--rate HERTZ] [--channels COUNT]

Mixes the sound files IN, which all start together, to sound file OUT. The extension of OUT chooses the
format (`mavrin2 convert --help` lists them). The result is as long as the longest file and has the
sample rate and channels of the first one, or those given. An existing file OUT is replaced when the
new one is complete. An IN may be -, standard input (-@30%), and OUT -, standard output.

  IN@GAIN%          the level of a file in percent, 0 to 1000: music.mp3@30%; 100 if not given
  --rate HERTZ      sample rate, 1000 to 192000
  --channels COUNT  1 or 2
  --format FORMAT   the format of standard output, as an extension: flac
  --strict          fail, and write nothing, where anything of the files would be lost

Samples beyond full scale are limited to it; how many is said on standard error.
Exit codes: 0 success, 1 failure, 2 usage error.
)";

constexpr std::string_view kOptions[] = {kRate, kChannels, kFormat};
constexpr std::string_view kFlags[] = {kStrict};
constexpr const char* kInTheMix = "in the mix";

struct Level {
    std::string File;
    double Percent = 100;
};

struct Input {
    InputFile File;
    double Percent;
    double Seconds = 0;
};

// An operand `FILE` or `FILE@GAIN%`.
Level LevelOf(const std::string& operand) {
    constexpr double kMost = 1000;
    const std::size_t at = operand.rfind('@');
    if (at == std::string::npos || !operand.ends_with('%')) return {operand};
    const char* const begin = operand.data() + at + 1;
    const char* const end = operand.data() + operand.size() - 1;
    double percent = 0;
    const auto result = std::from_chars(begin, end, percent, std::chars_format::fixed);
    if (result.ec != std::errc() || result.ptr != end || !(percent >= 0 && percent <= kMost))
        throw UsageError("invalid level '" + operand.substr(at) + "'; try @30% (0 to 1000)");
    return {operand.substr(0, at), percent};
}

int Run(const CommandLine& line) {
    if (line.Operands().size() < 2) throw UsageError("mix needs OUT and at least one file");
    std::vector<double> levels;
    std::vector<std::string> names;
    for (const std::string& operand : std::span(line.Operands()).subspan(1)) {
        const Level level = LevelOf(operand);
        levels.push_back(level.Percent);
        names.push_back(level.File);
    }
    SampleFormat format(line);
    SoundOutput output(OutputTarget(line.Operands()[0], line), names);
    std::vector<Input> inputs;
    for (InputFile& file : InputFilesOf(names))
        inputs.push_back({std::move(file), levels[inputs.size()]});

    // The longest file becomes the document, since mixing stops at the end of the document.
    Editor editor;
    Losses losses(line);
    for (Input& input : inputs) {
        losses.Open(editor, input.File);
        input.Seconds = static_cast<double>(editor.Frames()) / editor.Rate();
        format.CompleteFrom(editor);
    }
    const auto longest = std::ranges::max_element(inputs, {}, &Input::Seconds);
    if (longest != std::prev(inputs.end())) editor.Open(longest->File);
    format.ApplyTo(editor);
    losses.SayLimited(editor, longest->File.Name(), kByRateChange);
    // Mixed with itself at 0 %, it keeps its length and gets its level.
    if (longest->Percent != 100) editor.Mix(longest->Percent, longest->File, 0);
    losses.SayLimited(editor, longest->File.Name(), kInTheMix);
    for (auto input = inputs.begin(); input != inputs.end(); ++input) {
        if (input == longest) continue;
        editor.Mix(100, input->File, input->Percent);
        losses.SayLimited(editor, input->File.Name(), kInTheMix);
    }
    output.Write(editor, false, losses);
    return kSuccess;
}

}  // namespace

const Command kMixCommand{"mix", kHelp, kOptions, false, &Run, kFlags};

}  // namespace mavrin2::script
