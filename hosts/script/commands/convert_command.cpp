#include <cstdio>
#include <optional>
#include <string>

#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/sound_output.h"
#include "hosts/script/commands/times.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 convert IN OUT [OPTION...]

Converts sound file IN, or the track of a CD (`mavrin2 cd` lists them), to sound file OUT. The extension
of OUT chooses the format: .wav, .aiff, .flac, .ogg (Vorbis), .opus, .mp3, .vox, .wma, .mp2, .au, .g721,
.g723 or .g726. An existing file OUT is replaced when the new one is complete. The editor works on 16-bit
samples, at most 2 GiB of them. Tags and markers of IN go to OUT.

  --start TIME      where to start; the beginning if not given
  --end TIME        where to end; the end if not given
  --rate HERTZ      sample rate, 1000 to 192000; as in IN if not given
  --channels COUNT  1 or 2; as in IN if not given
  --format FORMAT   format of OUT, with its values: OggVorbis=44100,2,160
  --lame OPTIONS    MP3 with options as the program lame has them: "--vbr-new -v 2"
  --bare            without tags and markers

TIME is 1.5 (seconds), 1:30.25 (minutes and seconds) or 66150f (sample frames of IN).
With FORMAT, OUT may have an unknown extension or none, and its rate and channels are those of FORMAT.
Values that are left out have their defaults.
Exit codes: 0 success, 1 failure, 2 usage error.

Formats:
)";

constexpr std::string_view kFormat = "--format";
constexpr std::string_view kLame = "--lame";
constexpr std::string_view kOptions[] = {kStart, kEnd, kRate, kChannels, kFormat, kLame};
constexpr std::string_view kBare = "--bare";
constexpr std::string_view kFlags[] = {kBare};

// The format of the output, if the command line chooses one.
class FormatChoice {
public:
    // Throws UsageError.
    FormatChoice(const CommandLine& line, const Editor& editor)
        : formats_(editor.OutputFormats()), lame_(line.Value(kLame)) {
        const auto text = line.Value(kFormat);
        if (text) call_ = formats_.Parse(*text);
        if (lame_ && call_) throw UsageError("--format and --lame exclude each other");
    }

    void ApplyTo(const Editor& editor, SoundOutput& output) {
        if (lame_) editor.ChooseMp3(*lame_);
        if (call_) formats_.Run(*call_);
        if (lame_ || call_) output.Expect(editor.Format());
    }

private:
    Operations formats_;
    std::optional<std::string> lame_;
    std::optional<OperationCall> call_;
};

void ListFormats() {
    const Editor editor;
    for (const Operations::Line& one : editor.OutputFormats().List())
        std::printf("  %s\n      %s\n", one.Usage.c_str(), one.Help.c_str());
}

int Run(const CommandLine& line) {
    if (line.Operands().size() != 2) throw UsageError("convert needs two files, IN and OUT");
    const std::string& in = line.Operands()[0];
    const TimeRange part(line);
    const SampleFormat format(line);

    // First, so that a bad output name is reported before the input is read.
    SoundOutput output(line.Operands()[1], {&in, 1}, line.Value(kFormat).has_value());
    Editor editor;
    FormatChoice choice(line, editor);
    if (line.Has(kBare)) editor.LeaveOutExtraInfo();
    editor.Open(in);
    bool selection = part.IsGiven();
    if (selection) {
        const auto [start, end] = part.In(editor, in);
        editor.Select(start, end);
    }
    if (format.Changes(editor)) {
        // Converting drops the selection, and costs more than to leave the rest out first.
        if (selection) editor.KeepSelection();
        selection = false;
        format.ApplyTo(editor);
    }
    choice.ApplyTo(editor, output);
    output.Write(editor, selection);
    return kSuccess;
}

}  // namespace

const Command kConvertCommand{"convert", kHelp, kOptions, false, &Run, kFlags, &ListFormats};

}  // namespace mavrin2::script
