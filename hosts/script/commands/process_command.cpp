// The commands `process` and `operations`.

#include <cstdio>
#include <span>

#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/operations.h"
#include "hosts/script/commands/sound_output.h"
#include "hosts/script/commands/times.h"

namespace mavrin2::script {
namespace {

constexpr const char* kProcessHelp =
    R"(Usage: mavrin2 process IN OUT OPERATION... [--start TIME] [--end TIME]

Runs operations on sound file IN, or on a part of it, in the given order, and writes the whole sound to
sound file OUT. The extension of OUT chooses the format (`mavrin2 convert --help` lists them). An
existing file OUT is replaced when the new one is complete. IN may be -, standard input, and OUT -,
standard output.

  --start TIME     where the part starts; the beginning if not given
  --end TIME       where the part ends; the end if not given
  --format FORMAT  the format of standard output, as an extension: flac
  --strict         fail, and write nothing, where anything of IN would be lost

OPERATION is a name, with `=` and its values separated by commas if it has any: Reverse, Normalize=95,0,
LowPassFilter=4000,2. The numbers of an array have colons between them: Envelope=0:100:50.
`mavrin2 operations` lists all operations with their values, of which none may be left out.
TIME is 1.5 (seconds), 1:30.25 (minutes and seconds) or 66150f (sample frames).
Exit codes: 0 success, 1 failure, 2 usage error.
)";

constexpr const char* kOperationsHelp =
    R"(Usage: mavrin2 operations

Lists the operations of `mavrin2 process` with their values, and what the values mean.
)";

constexpr std::string_view kOptions[] = {kStart, kEnd, kFormat};
constexpr std::string_view kFlags[] = {kStrict};

int Process(const CommandLine& line) {
    if (line.Operands().size() < 3)
        throw UsageError("process needs two files, IN and OUT, and at least one operation");
    const TimeRange part(line);
    Editor editor;
    const Operations operations = editor.Transform();
    std::vector<OperationCall> calls;
    for (const std::string& text : std::span(line.Operands()).subspan(2))
        calls.push_back(operations.Parse(text));
    SoundOutput output(OutputTarget(line.Operands()[1], line), std::span(line.Operands()).first(1));

    Losses losses(line);
    const InputFile in(line.Operands()[0]);
    losses.Open(editor, in);
    TimeRange::Frames range{0, editor.Frames()};
    if (part.IsGiven()) range = part.In(editor, in.Name());
    for (OperationCall& call : calls) {
        range.End += editor.Process(operations, call, range.Start, range.End);
        losses.SayLimited(editor, in.Name(), "by " + call.Text);
    }
    output.Write(editor, false, losses);
    return kSuccess;
}

int List(const CommandLine& line) {
    if (!line.Operands().empty()) throw UsageError("operations takes no arguments");
    const Editor editor;
    for (const Operations::Line& one : editor.Transform().List())
        std::printf("%s\n    %s\n", one.Usage.c_str(), one.Help.c_str());
    return kSuccess;
}

}  // namespace

const Command kProcessCommand{"process", kProcessHelp, kOptions, false, &Process, kFlags};
const Command kOperationsCommand{"operations", kOperationsHelp, {}, false, &List};

}  // namespace mavrin2::script
