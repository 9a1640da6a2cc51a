#include "hosts/script/commands/file_report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <system_error>

#include "hosts/script/commands/cd_drives.h"
#include "hosts/script/commands/command.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/input_file.h"
#include "hosts/script/commands/printable.h"
#include "hosts/script/commands/times.h"
#include "platform/interrupt.h"

namespace mavrin2::script {
namespace {

// By way of the editor, for what the companion's inspector does not know.
SoundFacts FactsOfDocument(const InputFile& file) {
    Editor editor;
    editor.Open(file);
    SoundFacts facts;
    facts.Format = editor.Format();
    facts.Rate = editor.Rate();
    facts.Channels = editor.Channels();
    facts.Frames = facts.DecodedFrames = facts.StatedFrames = editor.Frames();
    facts.Decoded = true;
    return facts;
}

std::optional<SoundFacts> Inspect(const std::string& file, bool exact) {
    try {
        SoundInspection inspection(file);
        if (exact) inspection.Decode(&platform::Interrupted);
        if (platform::Interrupted()) throw Interruption();
        return inspection.Facts();
    } catch (const binding::CallError&) {
        return std::nullopt;
    }
}

void AddStoredInfo(FileReport& report, const std::string& file) {
    const StoredInfo stored(file);
    for (const Tag& tag : Tags())
        if (std::string text = stored.Text(tag);
            tag.Describes == Tag::Subject::Sound && !text.empty())
            report.Tags.emplace_back(tag.Name, std::move(text));
    report.Markers = stored.Markers();
}

std::string Line(const std::string& name, const std::string& value) {
    constexpr std::size_t kColumn = 16;
    std::string text = name + std::string(name.size() < 9 ? 10 - name.size() : 1, ' ');
    if (name.size() >= 9) text.resize(std::max(text.size(), kColumn), ' ');
    return text + value + "\n";
}

std::string Formatted(const char* format, double value) {
    char text[64];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

std::string Whole(double value) {
    return Formatted("%.0f", value);
}

}  // namespace

FileReport ReportOf(const std::string& operand, bool exact) {
    const InputFile file(operand);
    FileReport report;
    report.File = operand;
    const bool track = IsCdTrack(operand);
    if (!track) CheckReadable(file.Path());
    std::optional<SoundFacts> facts;
    if (!track) facts = Inspect(file.Path(), exact);
    // Where the inspector does not know the file, the control says why.
    report.Sound = facts ? std::move(*facts) : FactsOfDocument(file);
    report.ExactLength = report.Sound.Decoded || report.Sound.StatedFrames > 0;
    if (report.Sound.Rate > 0) report.Seconds = report.Frames() / report.Sound.Rate;
    if (track) return report;
    std::error_code error;
    const auto bytes = static_cast<double>(std::filesystem::file_size(file.Path(), error));
    if (!error && report.Seconds > 0) report.BitRate = bytes * 8 / report.Seconds;
    AddStoredInfo(report, file.Path());
    return report;
}

std::string AsText(const FileReport& report) {
    const SoundFacts& sound = report.Sound;
    std::string text = Line("File", Printable(report.File)) + Line("Format", sound.Format);
    text += Line("Length", DurationText(std::llround(report.Frames()), sound.Rate) + " (" +
                               Whole(report.Frames()) + " frames" +
                               (report.ExactLength ? ")" : ", estimated)"));
    text += Line("Rate", std::to_string(sound.Rate) + " Hz");
    text += Line("Channels", std::to_string(sound.Channels));
    if (report.BitRate > 0) text += Line("Bit rate", Whole(report.BitRate / 1000) + " kbit/s");
    for (const auto& [name, value] : report.Tags)
        text += Line(name, Printable(value));
    if (!report.Markers.empty()) text += Line("Markers", std::to_string(report.Markers.size()));
    for (const std::string& loss : LossesOf(sound))
        text += Line("As document", loss);
    return text;
}

std::string AsJson(const FileReport& report) {
    const SoundFacts& sound = report.Sound;
    std::string json = "{\"file\": " + JsonText(report.File) +
                       ", \"format\": " + JsonText(sound.Format) +
                       ", \"rate\": " + std::to_string(sound.Rate) +
                       ", \"channels\": " + std::to_string(sound.Channels) +
                       ", \"frames\": " + Whole(report.Frames()) +
                       ", \"exact\": " + (report.ExactLength ? "true" : "false") +
                       ", \"seconds\": " + Formatted("%.6f", report.Seconds) +
                       ", \"bitRate\": " + Whole(report.BitRate) + ", \"tags\": {";
    const char* separator = "";
    for (const auto& [name, value] : report.Tags) {
        json += separator + JsonText(name) + ": " + JsonText(value);
        separator = ", ";
    }
    json += "}, \"markers\": [";
    separator = "";
    for (const FileMarker& marker : report.Markers) {
        json += separator + ("{\"position\": " + std::to_string(marker.Position)) +
                ", \"length\": " + std::to_string(marker.Length) +
                ", \"label\": " + JsonText(marker.Label) + ", \"note\": " + JsonText(marker.Note) +
                "}";
        separator = ", ";
    }
    json += "], \"losses\": [";
    separator = "";
    for (const std::string& loss : LossesOf(sound)) {
        json += separator + JsonText(loss);
        separator = ", ";
    }
    return json + "]}";
}

}  // namespace mavrin2::script
