#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/sound_output.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 join OUT IN... [--rate HERTZ] [--channels COUNT]

Writes the sound files IN one after another to sound file OUT. The extension of OUT chooses the format
(`mavrin2 convert --help` lists them). The files are converted to the sample rate and channels of the
first one, or to those given. An existing file OUT is replaced when the new one is complete. An IN may
be -, standard input, and OUT -, standard output.

  --rate HERTZ      sample rate, 1000 to 192000
  --channels COUNT  1 or 2
  --format FORMAT   the format of standard output, as an extension: flac
  --strict          fail, and write nothing, where anything of the files would be lost

The result has at most 2 GiB of 16-bit samples: 3 h 22 min 54 s of 44.1 kHz stereo.
Exit codes: 0 success, 1 failure, 2 usage error.
)";

constexpr std::string_view kOptions[] = {kRate, kChannels, kFormat};
constexpr std::string_view kFlags[] = {kStrict};

int Run(const CommandLine& line) {
    if (line.Operands().size() < 2) throw UsageError("join needs OUT and at least one file");
    const std::span inputs = std::span(line.Operands()).subspan(1);
    const SampleFormat format(line);
    SoundOutput output(OutputTarget(line.Operands()[0], line), inputs);

    Editor editor;
    Losses losses(line);
    const std::vector<InputFile> files = InputFilesOf(inputs);
    losses.Open(editor, files.front());
    format.ApplyTo(editor);
    losses.SayLimited(editor, files.front().Name(), kByRateChange);
    for (const InputFile& file : std::span(files).subspan(1))
        losses.Append(editor, file);
    output.Write(editor, false, losses);
    return kSuccess;
}

}  // namespace

const Command kJoinCommand{"join", kHelp, kOptions, false, &Run, kFlags};

}  // namespace mavrin2::script
