#include "hosts/script/commands/format_choice.h"

#include <algorithm>
#include <cstdio>
#include <span>

#include "hosts/script/commands/command.h"

namespace mavrin2::script {
namespace {

// An option that some formats have; `formats` are their extensions.
std::optional<std::int32_t> NumberFor(const CommandLine& line, std::string_view option,
                                      std::int32_t most, const std::string& extension,
                                      std::span<const std::string_view> formats) {
    const auto number = NumberOf(line, option, 0, most, "a number as `--help` says");
    if (!number || std::ranges::find(formats, extension) != formats.end()) return number;
    std::string names;
    for (const std::string_view format : formats)
        names += (names.empty() ? "" : ", ") + std::string(format.substr(1));
    throw UsageError(std::string(option) + " is for " + names + ", not for '" + extension + "'");
}

}  // namespace

FormatChoice::FormatChoice(const CommandLine& line, const Editor& editor,
                           const OutputTarget& target)
    : formats_(editor.OutputFormats()), extension_(target.Extension()), lame_(line.Value(kLame)) {
    constexpr std::string_view kWithBitrate[] = {".mp3", ".mp2", ".ogg", ".oga"};
    constexpr std::string_view kWithQuality[] = {".mp3", ".ogg", ".oga"};
    constexpr std::int32_t kMostBitrate = 640;
    if (const auto& text = target.Format()) call_ = formats_.Parse(*text);
    bitrate_ = NumberFor(line, kBitrate, kMostBitrate, extension_, kWithBitrate);
    quality_ = NumberFor(line, kQuality, extension_ == ".mp3" ? 9 : 10, extension_, kWithQuality);
    const int choices = (lame_ ? 1 : 0) + (call_ ? 1 : 0) + (bitrate_ ? 1 : 0) + (quality_ ? 1 : 0);
    if (choices > 1)
        throw UsageError("--format, --lame, --bitrate and --quality exclude each other");
}

void FormatChoice::ApplyTo(const Editor& editor, SoundOutput& output) {
    if (lame_) editor.ChooseMp3(*lame_);
    if (call_) formats_.Run(*call_);
    if (bitrate_) ApplyBitrate(editor);
    if (quality_) ApplyQuality(editor);
    if (lame_ || call_ || bitrate_ || quality_) output.Expect(editor.Format());
    // These choose the rate and the channels themselves.
    if (lame_ || call_) output.On(SoundOutput::Mismatch::Accept);
}

void FormatChoice::ApplyBitrate(const Editor& editor) const {
    const std::string rate = std::to_string(editor.Rate());
    const std::string channels = std::to_string(editor.Channels());
    const std::string bitrate = std::to_string(*bitrate_);
    if (extension_ == ".mp3" || extension_ == ".mp2")
        Choose((extension_ == ".mp3" ? "MP3=" : "MP2=") + rate + "," + bitrate + "," + channels);
    else
        Choose("OggVorbis=" + rate + "," + channels + "," + bitrate);
}

void FormatChoice::ApplyQuality(const Editor& editor) const {
    const std::string quality = std::to_string(*quality_);
    if (extension_ != ".mp3")
        return Choose("OggVorbis=" + std::to_string(editor.Rate()) + "," +
                      std::to_string(editor.Channels()) + ",0,0,0," + quality);
    char kilohertz[32];
    std::snprintf(kilohertz, sizeof kilohertz, "%.3f", editor.Rate() / 1000.0);
    // What the program lame makes of -V: the newer search, joint stereo, noise shaping of level 3.
    editor.ChooseMp3("--vbr-new -q 3 -v " + quality + " --resample " + kilohertz +
                     (editor.Channels() == 1 ? " -m m" : " -m j"));
}

void FormatChoice::Choose(const std::string& format) const {
    OperationCall call = formats_.Parse(format);
    formats_.Run(call);
}

}  // namespace mavrin2::script
