#include "hosts/script/commands/convert_command.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "automation/text.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/failure.h"
#include "hosts/script/commands/output_file.h"
#include "hosts/script/commands/time_range.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 convert IN OUT [--start TIME] [--end TIME]

Writes the sound of file IN to file OUT, in the format that OUT's extension tells: .wav, .aiff,
.flac, .ogg (Vorbis), .opus, .mp3 or .vox. An older file OUT is replaced once the new one is
complete.

  --start TIME  leave out what comes before
  --end TIME    leave out what comes from there on

A TIME is 1.5 (seconds), 1:30.25 (minutes and seconds) or 66150f (sample frames).
Exit codes: 0 done, 1 failed, 2 wrong use.
)";

constexpr std::string_view kOptions[] = {kStart, kEnd};

// The control takes an extension that it does not know for one kind of telephone sound; who types
// one has made a mistake.
constexpr std::string_view kExtensions[] = {".wav", ".aif",  ".aiff", ".flac", ".ogg",
                                            ".oga", ".opus", ".mp3",  ".vox"};

void CheckExtension(const std::string& file) {
    const std::string extension =
        automation::AsciiLower(std::filesystem::path(file).extension().string());
    if (std::ranges::find(kExtensions, extension) == std::end(kExtensions))
        throw UsageError(file + ": the extension tells no format that can be written");
}

void CheckDifferent(const std::string& in, const std::string& out) {
    std::error_code error;
    if (std::filesystem::equivalent(in, out, error) && !error)
        throw Failure(out, "Would replace the file that is read");
}

int Run(const CommandLine& line) {
    if (line.Operands().size() != 2) throw UsageError("convert needs two files, IN and OUT");
    const std::string& in = line.Operands()[0];
    const std::string& out = line.Operands()[1];
    const TimeRange piece(line);
    CheckExtension(out);
    CheckDifferent(in, out);

    // First, so that nobody waits for a sound that cannot be put anywhere.
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
