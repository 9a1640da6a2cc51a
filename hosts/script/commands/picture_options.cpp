#include "hosts/script/commands/picture_options.h"

#include <algorithm>

#include "hosts/script/commands/command.h"
#include "hosts/script/commands/sound_output.h"

namespace mavrin2::script {
namespace {

constexpr std::string_view kSize = "--size";
constexpr std::string_view kView = "--view";
constexpr std::string_view kRange = "--range";
constexpr std::string_view kSelection = "--selection";
constexpr std::string_view kAxis = "--axis";
constexpr std::string_view kLevel = "--level";
constexpr std::string_view kColor = "--color";
constexpr std::string_view kText = "--text";
constexpr std::string_view kOptions[] = {kSize,     kView, kRange, kStart, kEnd, kSelection,
                                         kChannels, kAxis, kLevel, kColor, kText};

constexpr std::int32_t kPoints = 8;  // as the control begins with

std::optional<PictureSize> SizeOf(const CommandLine& line) {
    const auto text = line.Value(kSize);
    if (!text) return std::nullopt;
    const auto size = PictureSizeOf(*text);
    if (!size)
        throw UsageError("invalid size '" + *text +
                         "'; try 1200x300 (at most 32767 each, 67108864 pixels in all), " +
                         PictureSizeNames());
    return size;
}

// The index of the option's value among its choices; 0 if the option is not given.
template <class Choice>
Choice ChoiceOf(const CommandLine& line, std::string_view option,
                std::initializer_list<std::string_view> choices) {
    const auto text = line.Value(option);
    if (!text) return {};
    const auto* const found = std::ranges::find(choices, std::string_view(*text));
    if (found == choices.end()) {
        std::string names;
        for (const std::string_view choice : choices)
            names += (names.empty() ? "" : ", ") + std::string(choice);
        throw UsageError("unknown value '" + *text + "' for " + std::string(option) + "; try " +
                         names);
    }
    return static_cast<Choice>(found - choices.begin());
}

std::optional<TimeRange> RangeOf(const CommandLine& line, std::string_view option) {
    const auto text = line.Value(option);
    return text ? std::optional(TimeRange::Parse(option, *text)) : std::nullopt;
}

// --range, or else --start and --end.
TimeRange ViewOf(const CommandLine& line) {
    const auto range = RangeOf(line, kRange);
    const TimeRange ends(line);
    if (range && ends.IsGiven()) throw UsageError("--range says what --start and --end do");
    return range.value_or(ends);
}

}  // namespace

std::span<const std::string_view> PictureOptions::Names() {
    return kOptions;
}

PictureOptions::PictureOptions(const CommandLine& line)
    : size_(SizeOf(line)),
      colors_(line.Values(kColor)),
      view_(ViewOf(line)),
      selection_(RangeOf(line, kSelection)),
      spectral_(ChoiceOf<int>(line, kView, {"waveform", "spectral"}) == 1),
      side_(ChoiceOf<Side>(line, kChannels, {"both", "left", "right", "sum"})),
      axis_(ChoiceOf<Axis>(line, kAxis, {"time", "samples", "none"})),
      level_(ChoiceOf<Level>(line, kLevel, {"samples", "percent", "decibels"})),
      text_(NumberOf(line, kText, 4, 72, "12 (points, 4 to 72)").value_or(kPoints)) {
    for (const std::string_view option : kOptions)
        if (option != kColor && line.Values(option).size() > 1)
            throw UsageError(std::string(option) + " is given twice");
}

PictureSize PictureOptions::SizeFor(std::size_t files) const {
    constexpr PictureSize kOne{1200, 300};
    constexpr int kRow = 200;
    constexpr int kHighest = 32767;
    if (files == 1) return size_.value_or(kOne);
    const auto most = [&](int height, int row) { return static_cast<std::size_t>(height / row); };
    if (!size_ && files <= most(kHighest, kRow))
        return {kOne.Width, kRow * static_cast<int>(files)};
    // So many pixels of a waveform below a name can still be read.
    constexpr int kLeast = 24;
    const int row = NameLine().Height() + kLeast;
    const PictureSize size = size_.value_or(PictureSize{kOne.Width, kHighest});
    if (files > most(size.Height, row))
        throw UsageError(std::to_string(files) + " files have no room in a picture " +
                         std::to_string(size.Height) + " pixels high: at most " +
                         std::to_string(most(size.Height, row)) + " have");
    return size;
}

Caption PictureOptions::NameLine() const {
    return Caption(text_);
}

void PictureOptions::ApplyStyle(const Editor& editor) const {
    const binding::LateBound control{automation::ComPtr<IDispatch>(&editor.Control())};
    colors_.ApplyTo(control.Part("Colors"));
    constexpr std::int32_t kFlat = 4;
    if (colors_.HasTransparent()) control.Put("TypeBorder", kFlat);
    const binding::LateBound time = control.Part("ScaleX");
    const binding::LateBound level = control.Part("ScaleY");
    if (axis_ == Axis::None)
        for (const binding::LateBound& scale : {time, level})
            scale.Put("Visible", false);
    time.Put("Type", axis_ == Axis::Samples ? 1 : 2);
    level.Put("Type", static_cast<std::int32_t>(level_) + 1);
    if (text_ == kPoints) return;
    for (const binding::LateBound& scale : {time, level}) {
        const binding::LateBound font = scale.Part("Font");
        font.Put("Size", text_);
        scale.Put("Font", font);
    }
}

void PictureOptions::ShowSide(Editor& editor, const std::string& file) const {
    if (side_ == Side::Both) return;
    if (side_ == Side::Sum) {
        if (editor.Channels() > 1) editor.Convert(editor.Rate(), 1);
        return;
    }
    const int shown = side_ == Side::Left ? 1 : 2;
    if (shown > editor.Channels()) throw Failure(file, "the file has no right channel");
    for (int channel = 1; channel <= editor.Channels(); ++channel)
        editor.ShowChannel(channel, channel == shown);
}

void PictureOptions::ApplyView(Editor& editor, const std::string& file) const {
    if (editor.Frames() < 1) throw Failure(file, "there is no sound in it");
    ShowSide(editor, file);
    if (view_.IsGiven()) {
        const auto range = view_.In(editor, file);
        editor.ShowRange(static_cast<std::int32_t>(range.Start),
                         static_cast<std::int32_t>(range.End));
    }
    if (selection_) {
        const auto range = selection_->In(editor, file);
        editor.Select(range.Start, range.End);
    }
    if (spectral_) editor.ShowSpectrum();
}

}  // namespace mavrin2::script
