#include <algorithm>
#include <charconv>
#include <filesystem>
#include <memory>
#include <system_error>

#include "automation/text.h"
#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/output_file.h"
#include "hosts/script/commands/times.h"
#include "hosts/script/window/host_window.h"
#include "hosts/script/window/png_file.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 picture IN OUT.png [OPTION...]

Draws sound file IN as the editor shows it, and writes the picture to file OUT.png. An existing file
is replaced when the new one is complete.

  --size WIDTHxHEIGHT    in pixels; 1200x300 if not given
  --view KIND            waveform (if not given) or spectral: frequency upward, level as colour
  --start TIME           where the picture starts; the beginning if not given
  --end TIME             where the picture ends; the end if not given
  --selection TIME-TIME  a range to show as selected
  --channels WHICH       left, right or both (if not given)

TIME is 1.5 (seconds), 1:30.25 (minutes and seconds) or 66150f (sample frames).
Exit codes: 0 success, 1 failure, 2 usage error.
)";

constexpr std::string_view kSize = "--size";
constexpr std::string_view kView = "--view";
constexpr std::string_view kSelection = "--selection";
constexpr std::string_view kChannels = "--channels";
constexpr std::string_view kOptions[] = {kSize, kView, kStart, kEnd, kSelection, kChannels};

struct Size {
    int Width = 1200;
    int Height = 300;
};

// A number of pixels; 0 for any other text.
int ParseLength(std::string_view text) {
    int value = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    const bool whole = result.ec == std::errc() && result.ptr == end;
    return whole && value > 0 ? value : 0;
}

Size SizeOf(const CommandLine& line) {
    const auto text = line.Value(kSize);
    if (!text) return {};
    const std::size_t sign = std::min(text->find('x'), text->size());
    const std::string_view whole = *text;
    const Size size{ParseLength(whole.substr(0, sign)),
                    ParseLength(whole.substr(std::min(sign + 1, whole.size())))};
    if (size.Width == 0 || size.Height == 0 || !HostWindow::CanBe(size.Width, size.Height))
        throw UsageError("invalid size '" + *text +
                         "'; try 1200x300 (at most 32767 each, 67108864 pixels in all)");
    return size;
}

// The index of the option's value among its choices; 0 if the option is not given.
int ChoiceOf(const CommandLine& line, std::string_view option,
             std::span<const std::string_view> choices) {
    const auto text = line.Value(option);
    if (!text) return 0;
    const auto found = std::ranges::find(choices, *text);
    if (found == choices.end()) {
        std::string names;
        for (const std::string_view choice : choices)
            names += (names.empty() ? "" : ", ") + std::string(choice);
        throw UsageError("unknown value '" + *text + "' for " + std::string(option) + "; try " +
                         names);
    }
    return static_cast<int>(found - choices.begin());
}

std::optional<TimeRange> SelectionOf(const CommandLine& line) {
    const auto text = line.Value(kSelection);
    if (!text) return std::nullopt;
    const std::size_t dash = text->find('-');
    if (dash == std::string::npos)
        throw UsageError("invalid range '" + *text + "' for --selection; try 1.5-2.25");
    return TimeRange(TimeOf(kSelection, text->substr(0, dash)),
                     TimeOf(kSelection, text->substr(dash + 1)), kSelection);
}

// All that the command line says but the file names.
struct Options {
    explicit Options(const CommandLine& line)
        : Dimensions(SizeOf(line)), View(line), Selection(SelectionOf(line)) {
        static constexpr std::string_view kViews[] = {"waveform", "spectral"};
        static constexpr std::string_view kSides[] = {"both", "left", "right"};
        Spectral = ChoiceOf(line, kView, kViews) == 1;
        OnlyChannel = ChoiceOf(line, kChannels, kSides);
    }

    Size Dimensions;
    TimeRange View;
    std::optional<TimeRange> Selection;
    bool Spectral = false;
    int OnlyChannel = 0;  // 1 left, 2 right; 0 shows all
};

void Arrange(const Editor& editor, const Options& options, const std::string& file) {
    if (options.OnlyChannel > editor.Channels())
        throw Failure(file, "the file has no right channel");
    if (options.OnlyChannel != 0)
        for (int channel = 1; channel <= editor.Channels(); ++channel)
            editor.ShowChannel(channel, channel == options.OnlyChannel);
    if (options.View.IsGiven()) {
        const auto range = options.View.In(editor, file);
        editor.ShowRange(static_cast<std::int32_t>(range.Start),
                         static_cast<std::int32_t>(range.End));
    }
    if (options.Selection) {
        const auto range = options.Selection->In(editor, file);
        editor.Select(range.Start, range.End);
    }
    if (options.Spectral) editor.ShowSpectrum();
}

void Draw(const Editor& editor, const Options& options, const std::filesystem::path& file,
          const std::string& name) {
    // Inactive: drawn once, the control needs no window inside this one.
    HostWindow window(editor.Control(), options.Dimensions.Width, options.Dimensions.Height, false);
    try {
        WritePng(file, window.Update());
    } catch (const binding::CallError& error) {
        throw Failure(name, error.what());
    } catch (const std::system_error& error) {
        throw Failure(name, error.code().message());
    }
}

int Run(const CommandLine& line) {
    if (line.Operands().size() != 2) throw UsageError("picture needs two files, IN and OUT.png");
    const std::string& in = line.Operands()[0];
    const std::string& out = line.Operands()[1];
    const Options options(line);
    if (automation::AsciiLower(std::filesystem::path(out).extension().string()) != ".png")
        throw UsageError(out + ": pictures are PNG files; try a name that ends in .png");

    // First, so that a bad output name is reported before the input is read.
    OutputFile output(out);
    Editor editor;
    editor.Open(in);
    Arrange(editor, options, in);
    Draw(editor, options, output.Path(), out);
    output.Commit();
    return kSuccess;
}

}  // namespace

const Command kPictureCommand{"picture", kHelp, kOptions, false, &Run};

}  // namespace mavrin2::script
