#include <filesystem>
#include <system_error>

#include "automation/text.h"
#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/input_file.h"
#include "hosts/script/commands/losses.h"
#include "hosts/script/commands/output_file.h"
#include "hosts/script/commands/picture_options.h"
#include "hosts/script/picture/picture_writer.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 picture IN... OUT.png [OPTION...]

Draws sound file IN as the editor shows it, and writes the picture to file OUT.png. Several files are
drawn below each other, each under its name and with its own axis. An existing file is replaced when
the new one is complete. IN or OUT.png may be -, standard input or standard output.

What is drawn:
  --range FROM-TO      this part of each file; all of it if not given
  --start TIME         the same, where it starts,
  --end TIME           and where it ends
  --view KIND          waveform (if not given) or spectral: frequency upward, level as color
  --channels WHICH     both (if not given), left, right, or sum: both mixed into one
  --selection FROM-TO  a range to show as selected

What it looks like:
  --size SIZE          of the whole picture, in pixels or by name; 1200x300 if not given, or 1200x200
                       for each of several files. Names are thumbnail (320x180), vga (640x480),
                       hd (1280x720), full-hd (1920x1080), 4k (3840x2160) and 8k (7680x4320)
  --axis KIND          time (if not given), samples, or none: no scales
  --level KIND         scale of a waveform: samples (if not given), percent or decibels
  --text POINTS        height of the text; 8 if not given
  --color PART=COLOR   the color of a part, or of several between commas: background=white,wave=navy

TIME is 90 or 1.5 (seconds), 1:30.25 (minutes), 1:02:03 (hours) or 66150f (sample frames of IN).
PART is background, wave, curve (between single samples), center, limit (full scale), grid, axis, text,
selection, selected-wave, selected-curve, cursor, marker, range (a marker with a length) or
range-background. COLOR is #rrggbb, #rgb or a name as in CSS: black, white, gray, silver, red, maroon,
orange, gold, brown, yellow, olive, lime, green, cyan, teal, blue, navy, purple, pink, violet, magenta;
and for backgrounds, the selection and the axis also transparent.
With --strict nothing is drawn of files that are damaged or that the editor does not hold as they are.
Exit codes: 0 success, 1 failure, 2 usage error.
)";

constexpr std::string_view kFlags[] = {kStrict};

struct Files {
    explicit Files(const CommandLine& line);

    // As messages call it.
    std::string OutName() const { return Out == kStandardStream ? "standard output" : Out; }

    std::vector<std::string> In;
    std::string Out;
};

Files::Files(const CommandLine& line) {
    if (line.Operands().size() < 2) throw UsageError("picture needs two files, IN and OUT.png");
    In.assign(line.Operands().begin(), line.Operands().end() - 1);
    Out = line.Operands().back();
    CheckStandardInput(In);
    if (Out == kStandardStream) return;
    if (automation::AsciiLower(std::filesystem::path(Out).extension().string()) != ".png")
        throw UsageError(Out + ": pictures are PNG files; try a name that ends in .png");
    for (const std::string& in : In) {
        std::error_code error;
        if (std::filesystem::equivalent(in, Out, error) && !error)
            throw Failure(Out, "input and output are the same file");
    }
}

void Draw(const Files& files, const PictureOptions& options, PictureSize size, Losses& losses,
          const std::filesystem::path& target) {
    const bool strip = files.In.size() > 1;
    PngFile file(
        target, size.Width, size.Height,
        options.Colors().HasTransparent() ? PngFile::Kind::Transparent : PngFile::Kind::Opaque);
    PictureWriter writer(file, size.Width, options.Colors(),
                         strip ? std::optional(options.NameLine()) : std::nullopt);
    const auto count = static_cast<std::int64_t>(files.In.size());
    const auto topOf = [&](std::int64_t number) {
        return static_cast<int>(size.Height * number / count);
    };
    for (std::int64_t number = 0; number < count; ++number) {
        const InputFile in(files.In[static_cast<std::size_t>(number)]);
        Editor editor;
        options.ApplyStyle(editor);
        losses.Open(editor, in);
        options.ApplyView(editor, in.Name());
        writer.Write(editor.Control(), topOf(number + 1) - topOf(number),
                     Printable(std::filesystem::path(in.Name()).filename().string()));
    }
    file.Finish();
}

int Run(const CommandLine& line) {
    const Files files(line);
    const PictureOptions options(line);
    const PictureSize size = options.SizeFor(files.In.size());
    Losses losses(line);
    // First, so that a bad output name is reported before the input is read.
    OutputFile output =
        files.Out == kStandardStream ? OutputFile::OnStandardOutput(".png") : OutputFile(files.Out);
    try {
        Draw(files, options, size, losses, output.Path());
    } catch (const binding::CallError& error) {
        throw Failure(files.OutName(), error.what());
    } catch (const std::system_error& error) {
        throw Failure(files.OutName(), error.code().message());
    }
    losses.Refuse(files.OutName());
    output.Commit();
    return kSuccess;
}

}  // namespace

const Command kPictureCommand{"picture", kHelp, PictureOptions::Names(), false, &Run, kFlags};

}  // namespace mavrin2::script
