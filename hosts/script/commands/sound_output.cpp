#include "hosts/script/commands/sound_output.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <system_error>

#include "automation/text.h"
#include "hosts/script/commands/command.h"

namespace mavrin2::script {
namespace {

// The control writes every unknown extension in one telephone format. On a command
// line that is a typing error.
constexpr std::string_view kExtensions[] = {".wav",  ".aif",  ".aiff", ".flac", ".ogg", ".oga",
                                            ".opus", ".mp3",  ".vox",  ".wma",  ".mp2", ".au",
                                            ".snd",  ".g721", ".g723", ".g726"};

constexpr const char* kTry = "; try wav, aiff, flac, ogg, opus, mp3, vox";

void CheckExtension(const std::string& file, const std::string& extension) {
    if (extension.size() < 2)
        throw UsageError(file + ": no extension that chooses a format" + kTry);
    if (std::ranges::find(kExtensions, extension) == std::end(kExtensions))
        throw UsageError(file + ": unknown format '" + extension.substr(1) + "'" + kTry);
}

OutputFile OpenOutput(const OutputTarget& target, std::span<const std::string> inputs) {
    if (target.IsStandardOutput()) return OutputFile::OnStandardOutput(target.Extension());
    for (const std::string& in : inputs) {
        std::error_code error;
        if (in != kStandardStream && std::filesystem::equivalent(in, target.Operand(), error) &&
            !error)
            throw Failure(target.Operand(), "input and output are the same file");
    }
    return OutputFile(target.Operand());
}

// "Ogg Vorbis" of "Ogg Vorbis 44100 Hz; stereo".
std::string FormatName(const std::string& description) {
    return description.substr(0, description.find_last_of(' ', description.find(" Hz") - 1));
}

// 44100 of it; 0 where it has none.
std::int32_t RateIn(const std::string& description) {
    const std::size_t end = description.find(" Hz");
    if (end == std::string::npos) return 0;
    const std::size_t start = description.find_last_of(' ', end - 1) + 1;
    std::int32_t rate = 0;
    std::from_chars(description.data() + start, description.data() + end, rate);
    return rate;
}

}  // namespace

std::optional<std::int32_t> NumberOf(const CommandLine& line, std::string_view option,
                                     std::int32_t least, std::int32_t most, const char* expected) {
    const auto text = line.Value(option);
    if (!text) return std::nullopt;
    std::int32_t value = 0;
    const char* const end = text->data() + text->size();
    const auto result = std::from_chars(text->data(), end, value);
    if (result.ec != std::errc() || result.ptr != end || value < least || value > most)
        throw UsageError("invalid value '" + *text + "' for " + std::string(option) + "; try " +
                         expected);
    return value;
}

SampleFormat::SampleFormat(const CommandLine& line)
    : rate_(NumberOf(line, kRate, 1000, 192000, "44100 (1000 to 192000)")),
      channels_(NumberOf(line, kChannels, 1, 2, "1 or 2")) {}

bool SampleFormat::Changes(const Editor& editor) const {
    return rate_.value_or(editor.Rate()) != editor.Rate() ||
           channels_.value_or(editor.Channels()) != editor.Channels();
}

void SampleFormat::ApplyTo(Editor& editor) const {
    if (Changes(editor))
        editor.Convert(rate_.value_or(editor.Rate()), channels_.value_or(editor.Channels()));
}

void SampleFormat::CompleteFrom(const Editor& editor) {
    rate_ = rate_.value_or(editor.Rate());
    channels_ = channels_.value_or(editor.Channels());
}

OutputTarget::OutputTarget(const std::string& operand, const CommandLine& line, bool manyFormats)
    : operand_(operand) {
    if (IsStandardOutput()) {
        ChooseExtension(line, manyFormats);
        return;
    }
    extension_ = automation::AsciiLower(std::filesystem::path(operand).extension().string());
    if (manyFormats) format_ = line.Value(kFormat);
    if (!manyFormats && line.Value(kFormat))
        throw UsageError("--format is for standard output, -; the extension of " + operand +
                         " chooses the format");
    if (!format_) CheckExtension(operand, extension_);
}

void OutputTarget::ChooseExtension(const CommandLine& line, bool manyFormats) {
    const auto format = line.Value(kFormat);
    if (!format) throw UsageError(std::string("standard output needs --format") + kTry);
    const std::string extension =
        automation::AsciiLower((format->starts_with('.') ? "" : ".") + *format);
    if (manyFormats && std::ranges::find(kExtensions, extension) == std::end(kExtensions)) {
        format_ = format;
        return;
    }
    CheckExtension("standard output", extension);
    extension_ = extension;
}

SoundOutput::SoundOutput(const OutputTarget& target, std::span<const std::string> inputs)
    : name_(target.Name()), file_(OpenOutput(target, inputs)) {}

void SoundOutput::Expect(const std::string& format) {
    expected_ = FormatName(format);
}

// The document's description of its format is, after Save, that of the file.
void SoundOutput::CompareWith(const Editor& editor, Losses& losses) const {
    const std::string format = editor.Format();
    const std::int32_t rate = RateIn(format);
    const std::int32_t channels = format.ends_with("; mono") ? 1 : editor.Channels();
    if (mismatch_ == Mismatch::Accept || rate < 1 ||
        (rate == editor.Rate() && channels == editor.Channels()))
        return;
    const auto described = [](std::int32_t hertz, std::int32_t count) {
        return std::to_string(hertz) + " Hz " + (count == 1 ? "mono" : "stereo");
    };
    const std::string text = FormatName(format) + " does not have " +
                             described(editor.Rate(), editor.Channels()) + "; the nearest is " +
                             described(rate, channels);
    if (mismatch_ == Mismatch::Refuse) throw Failure(name_, text);
    losses.Say(name_, text + ", to which it was converted");
}

void SoundOutput::Write(Editor& editor, bool selection, Losses& losses) {
    losses.Refuse(name_);
    editor.Save(file_.Path(), name_, selection);
    losses.SayLimited(editor, name_, kByRateChange);
    if (expected_ && FormatName(editor.Format()) != *expected_)
        throw Failure(name_, "files of this kind are not written as " + *expected_ +
                                 "; try another extension");
    CompareWith(editor, losses);
    std::string missing;
    for (const std::string& one : editor.MissingIn(file_.Path(), selection))
        missing += (missing.empty() ? "" : ", ") + one;
    if (!missing.empty())
        losses.Say(name_, "written without " + missing + "; files of this kind do not have them");
    losses.Refuse(name_);
    file_.Commit();
}

}  // namespace mavrin2::script
