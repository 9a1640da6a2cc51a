#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/sound_output.h"
#include "hosts/script/commands/times.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 convert IN OUT [OPTION...]

Converts sound file IN, or the track of a CD (`mavrin2 cd` lists them), to sound file OUT. The extension of OUT chooses the format: .wav, .aiff,
.flac, .ogg (Vorbis), .opus, .mp3 or .vox. An existing file OUT is replaced when the new one is
complete. The editor works on 16-bit samples, at most 2 GiB of them. Tags and markers of IN go to OUT.

  --start TIME      where to start; the beginning if not given
  --end TIME        where to end; the end if not given
  --rate HERTZ      sample rate, 1000 to 192000; as in IN if not given
  --channels COUNT  1 or 2; as in IN if not given
  --bare            without tags and markers

TIME is 1.5 (seconds), 1:30.25 (minutes and seconds) or 66150f (sample frames of IN).
Exit codes: 0 success, 1 failure, 2 usage error.
)";

constexpr std::string_view kOptions[] = {kStart, kEnd, kRate, kChannels};
constexpr std::string_view kBare = "--bare";
constexpr std::string_view kFlags[] = {kBare};

int Run(const CommandLine& line) {
    if (line.Operands().size() != 2) throw UsageError("convert needs two files, IN and OUT");
    const std::string& in = line.Operands()[0];
    const TimeRange part(line);
    const SampleFormat format(line);

    // First, so that a bad output name is reported before the input is read.
    SoundOutput output(line.Operands()[1], {&in, 1});
    Editor editor;
    if (line.Has(kBare)) editor.LeaveOutExtraInfo();
    editor.Open(in);
    const bool selection = part.IsGiven();
    if (selection) {
        const auto [start, end] = part.In(editor, in);
        editor.Select(start, end);
    }
    if (format.Changes(editor)) {
        // Converting drops the selection, and costs more than to leave the rest out first.
        if (selection) editor.KeepSelection();
        format.ApplyTo(editor);
        output.Write(editor, false);
    } else {
        output.Write(editor, selection);
    }
    return kSuccess;
}

}  // namespace

const Command kConvertCommand{"convert", kHelp, kOptions, false, &Run, kFlags};

}  // namespace mavrin2::script
