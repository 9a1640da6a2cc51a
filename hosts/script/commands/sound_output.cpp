#include "hosts/script/commands/sound_output.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
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

void CheckExtension(const std::string& file) {
    constexpr const char* kTry = "; try wav, aiff, flac, ogg, opus, mp3, vox";
    const std::string extension =
        automation::AsciiLower(std::filesystem::path(file).extension().string());
    if (extension.size() < 2)
        throw UsageError(file + ": no extension that chooses a format" + kTry);
    if (std::ranges::find(kExtensions, extension) == std::end(kExtensions))
        throw UsageError(file + ": unknown format '" + extension.substr(1) + "'" + kTry);
}

// The same name, for a member initializer.
const std::string& Checked(const std::string& out, std::span<const std::string> inputs,
                           bool anyExtension) {
    if (!anyExtension) CheckExtension(out);
    for (const std::string& in : inputs) {
        std::error_code error;
        if (std::filesystem::equivalent(in, out, error) && !error)
            throw Failure(out, "input and output are the same file");
    }
    return out;
}

// "Ogg Vorbis" of "Ogg Vorbis 44100 Hz; stereo".
std::string FormatName(const std::string& description) {
    return description.substr(0, description.find_last_of(' ', description.find(" Hz") - 1));
}

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

}  // namespace

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

SoundOutput::SoundOutput(const std::string& name, std::span<const std::string> inputs,
                         bool anyExtension)
    : name_(name), file_(Checked(name, inputs, anyExtension)) {}

void SoundOutput::Expect(const std::string& format) {
    expected_ = FormatName(format);
}

void SoundOutput::Write(Editor& editor, bool selection) {
    editor.Save(file_.Path(), name_, selection);
    if (expected_ && FormatName(editor.Format()) != *expected_)
        throw Failure(name_, "files of this kind are not written as " + *expected_ +
                                 "; try another extension");
    std::string missing;
    for (const std::string& one : editor.MissingIn(file_.Path(), selection))
        missing += (missing.empty() ? "" : ", ") + one;
    if (!missing.empty())
        std::fprintf(stderr,
                     "mavrin2: %s: written without %s; files of this kind do not have them\n",
                     name_.c_str(), missing.c_str());
    file_.Commit();
}

}  // namespace mavrin2::script
