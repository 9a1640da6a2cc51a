#include "hosts/script/commands/stored_info.h"

#include <charconv>
#include <filesystem>
#include <limits>
#include <system_error>

#include "automation/text.h"
#include "hosts/script/commands/command.h"
#include "hosts/script/commands/input_file.h"
#include "hosts/script/commands/output_file.h"

namespace mavrin2::script {
namespace {

constexpr const char* kInformationProgId = "KovOntiva.Ontiva";
constexpr const char* kSoundFileProgId = "KovDusoro2.Dusoro2";

constexpr Tag kTags[] = {{"Title", "Title", false},
                         {"Artist", "Artist", false},
                         {"Album", "Album", false},
                         {"Track", "Track", true},
                         {"Year", "Year", true},
                         {"Genre", "GenreS", false},
                         {"Composer", "Composer", false},
                         {"OriginalArtist", "OriginalArtist", false},
                         {"Comments", "Comments", false},
                         {"Copyright", "Copyright", false},
                         {"URL", "URL", false},
                         {"EncodedBy", "EncodedBy", false, Tag::Subject::File},
                         {"Mp3TagInfoVersion", "Mp3TagInfoVersion", true, Tag::Subject::File}};

constexpr const char* kMarkerNumbers[] = {"InfoMarkerCountry", "InfoMarkerLanguage",
                                          "InfoMarkerDialect", "InfoMarkerCodePage"};

// Runs `act`; a call that fails is a failure with that file.
template <class Act>
void With(const std::string& file, Act act) {
    try {
        act();
    } catch (const binding::CallError& error) {
        throw Failure(file, error.what());
    }
}

std::string ExtensionOf(const std::string& file) {
    return automation::AsciiLower(std::filesystem::path(file).extension().string());
}

}  // namespace

std::span<const Tag> Tags() {
    return kTags;
}

std::string TagText(const binding::LateBound& object, const Tag& tag) {
    if (!tag.IsNumber) return object.Text(tag.Property);
    const std::int32_t number = object.Number(tag.Property);
    return number == 0 ? std::string() : std::to_string(number);
}

StoredInfo::StoredInfo(const std::string& file)
    : companion_(binding::CreateObject(kInformationProgId)), file_(file) {
    CheckReadable(file);
    With(file, [&] { companion_.Call("ReadInfo", file); });
}

bool StoredInfo::Put(const Tag& tag, const std::string& text) const {
    if (!tag.IsNumber) {
        companion_.Put(tag.Property, text);
        return true;
    }
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (!text.empty() && (result.ec != std::errc() || result.ptr != end)) return false;
    if (number < 0 || number > std::numeric_limits<std::int16_t>::max()) return false;
    companion_.Put(tag.Property, number);
    return true;
}

std::vector<FileMarker> StoredInfo::Markers() const {
    std::vector<FileMarker> markers;
    const std::int32_t count = MarkerCount();
    for (std::int32_t number = 1; number <= count; ++number) {
        companion_.Put("InfoMarkerNum", number);
        FileMarker marker{
            companion_.Number("InfoMarkerPosition"), companion_.Number("InfoMarkerLength"),
            companion_.Text("InfoMarkerLabel"),      companion_.Text("InfoMarkerNote"),
            companion_.Text("InfoMarkerText"),       {}};
        for (std::size_t i = 0; i < marker.Numbers.size(); ++i)
            marker.Numbers.at(i) = companion_.Number(kMarkerNumbers[i]);
        markers.push_back(std::move(marker));
    }
    return markers;
}

void StoredInfo::PutMarkers(std::span<const FileMarker> markers) const {
    for (std::int32_t left = MarkerCount(); left > 0; --left)
        companion_.Call("InfoRemoveMarker");
    for (const FileMarker& marker : markers) {
        const auto& [country, language, dialect, codePage] = marker.Numbers;
        companion_.Call("InfoAddMarker", marker.Position, marker.Length, marker.Label, marker.Note,
                        marker.Text, country, language, dialect, codePage);
    }
}

void StoredInfo::WriteTo(const std::string& out) const {
    std::error_code error;
    if (std::filesystem::equivalent(file_, out, error) && !error)
        return With(out, [&] { companion_.Call("WriteInfo", out); });
    if (ExtensionOf(file_) != ExtensionOf(out))
        throw Failure(out, "a copy of '" + file_ + "' needs the extension of its format, '" +
                               ExtensionOf(file_) + "'");
    OutputFile output(out);
    std::filesystem::copy_file(file_, output.Path(), error);
    if (error) throw Failure(out, error.message());
    With(out, [&] { companion_.Call("WriteInfo", output.Path().string()); });
    output.Commit();
}

std::int32_t SampleRateOf(const std::string& file) {
    const binding::LateBound companion(binding::CreateObject(kSoundFileProgId));
    try {
        companion.Call("OpenSoundFile", file, 0, 1);
    } catch (const binding::CallError&) {
        throw Failure(file, "not a sound file in a known format");
    }
    const std::int32_t rate = companion.Call("GetSourceFrequency").lVal;
    if (rate < 1) throw Failure(file, "has no sample rate");
    return rate;
}

}  // namespace mavrin2::script
