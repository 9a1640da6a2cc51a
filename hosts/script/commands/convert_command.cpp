#include <algorithm>
#include <filesystem>
#include <system_error>

#include "automation/text.h"
#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/output_file.h"
#include "hosts/script/commands/times.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 convert IN OUT [--start TIME] [--end TIME]

Converts sound file IN to sound file OUT. The extension of OUT chooses the format: .wav, .aiff,
.flac, .ogg (Vorbis), .opus, .mp3 or .vox. An existing file OUT is replaced when the new one is
complete. The editor works on 16-bit samples, at most 2 GiB of them.

  --start TIME  where to start; the beginning if not given
  --end TIME    where to end; the end if not given

TIME is 1.5 (seconds), 1:30.25 (minutes and seconds) or 66150f (sample frames).
Exit codes: 0 success, 1 failure, 2 usage error.
)";

constexpr std::string_view kOptions[] = {kStart, kEnd};

// The control writes every extension that it does not know in one telephone format. On a command
// line that is a typing error.
constexpr std::string_view kExtensions[] = {".wav", ".aif",  ".aiff", ".flac", ".ogg",
                                            ".oga", ".opus", ".mp3",  ".vox"};

void CheckExtension(const std::string& file) {
    constexpr const char* kTry = "; try wav, aiff, flac, ogg, opus, mp3, vox";
    const std::string extension =
        automation::AsciiLower(std::filesystem::path(file).extension().string());
    if (extension.size() < 2)
        throw UsageError(file + ": no extension that chooses a format" + kTry);
    if (std::ranges::find(kExtensions, extension) == std::end(kExtensions))
        throw UsageError(file + ": unknown format '" + extension.substr(1) + "'" + kTry);
}

void CheckDifferent(const std::string& in, const std::string& out) {
    std::error_code error;
    if (std::filesystem::equivalent(in, out, error) && !error)
        throw Failure(out, "input and output are the same file");
}

int Run(const CommandLine& line) {
    if (line.Operands().size() != 2) throw UsageError("convert needs two files, IN and OUT");
    const std::string& in = line.Operands()[0];
    const std::string& out = line.Operands()[1];
    const TimeRange piece(line);
    CheckExtension(out);
    CheckDifferent(in, out);

    // First, so that a bad output name is reported before the input is read.
    OutputFile output(out);
    Editor editor;
    editor.Open(in);
    if (piece.IsGiven()) {
        const TimeRange::Frames range = piece.In(editor, in);
        editor.Select(static_cast<std::int32_t>(range.Start), static_cast<std::int32_t>(range.End));
    }
    editor.Save(output.Path(), out, piece.IsGiven());
    output.Commit();
    return kSuccess;
}

}  // namespace

const Command kConvertCommand{"convert", kHelp, kOptions, false, &Run};

}  // namespace mavrin2::script
