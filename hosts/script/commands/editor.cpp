#include "hosts/script/commands/editor.h"

#include <cstdio>
#include <memory>
#include <system_error>

#include "automation/limited_samples.h"
#include "hosts/binding/edit_error.h"
#include "hosts/script/commands/cd_drives.h"
#include "hosts/script/commands/command.h"
#include "hosts/script/commands/stored_info.h"
#include "platform/interrupt.h"
#include "platform/terminal.h"

namespace mavrin2::script {
namespace {

// What the editor's methods fail with when a file cannot be opened, read or written, and when it is
// in no known format.
constexpr std::uint32_t kFileAccess = 0x80040309;
constexpr std::uint32_t kFormatFile = 0x80040303;
// The same of an edit, whose files are in the temporary folder.
constexpr std::int32_t kEditFileAccess = -18;

bool Is(const binding::CallError& error, std::uint32_t status) {
    return static_cast<std::uint32_t>(error.Status()) == status;
}

}  // namespace

Editor::Editor(bool progress)
    : editor_(binding::CreateObject(binding::kEditorProgId)),
      temporaryFolder_(editor_.Text("TempDirectory")),
      bar_(progress && platform::TerminalWidth(stderr) ? stderr : nullptr),
      events_(editor_.Object(), [this](DISPID event, std::span<const VARIANT> arguments) {
          OnEvent(event, arguments);
      }) {
    if (const auto* event = events_.Events().Find("BlockOperation", INVOKE_FUNC))
        progress_ = event->Id;
}

void Editor::OnEvent(DISPID event, std::span<const VARIANT> arguments) {
    if (event != progress_) return;
    if (platform::Interrupted()) {
        editor_.Call("Stop");
        return;
    }
    automation::Variant percent;
    if (arguments.empty() ||
        FAILED(VariantChangeType(&percent, const_cast<VARIANT*>(arguments.data()), 0, VT_I4)))
        return;
    bar_.Show(work_, percent.lVal);
}

void Editor::Run(const char* work, const std::string& name, auto&& operation) {
    work_ = work;
    try {
        operation();
    } catch (const binding::CallError& error) {
        bar_.Clear();
        throw Failure(name, error.what());
    }
    bar_.Clear();
    if (platform::Interrupted()) throw Interruption();
}

void Editor::Open(const InputFile& file) {
    if (IsCdTrack(file.Path())) return OpenTrack(file.Path());
    CheckReadable(file.Path());
    OpenDocument(file);
}

void Editor::New(std::int32_t rate, std::int32_t channels) {
    Run("Starting", "a new sound", [&] { editor_.Call("New", rate, channels); });
}

void Editor::OpenTrack(const std::string& file) {
    const CdTrack track = FindCdTrack(file);
    OpenDocument(track.Path);
    // The control keeps what it could read.
    if (Frames() != track.Frames)
        throw Failure(file, "the disc can be read only up to frame " + std::to_string(Frames()) +
                                " of " + std::to_string(track.Frames));
}

void Editor::OpenDocument(const InputFile& file) {
    if (temporaryFolder_.empty())
        throw Failure("no temporary folder: TMPDIR and /tmp cannot be written to");
    Run("Reading", file.Name(), [&] {
        try {
            editor_.Call("Open", file.Path());
        } catch (const binding::CallError& error) {
            if (Is(error, kFormatFile)) {
                const std::string appearance = AppearanceOf(file.Path());
                throw binding::CallError(error.Status(), appearance.empty()
                                                             ? "not a sound file in a known format"
                                                             : "not a sound file; " + appearance);
            }
            // The file itself can be read, so it is its working copy that cannot be written.
            if (!Is(error, kFileAccess)) throw;
            throw binding::CallError(error.Status(),
                                     "cannot write its working copy in the temporary folder " +
                                         temporaryFolder_ + SpaceHint(temporaryFolder_));
        }
    });
}

std::string Editor::Format() const {
    return editor_.Part("FileInfo").Text("FormatString");
}

void Editor::ChooseMp3(const std::string& options) const {
    const binding::LateBound settings(binding::CreateObject("KovMavrin2.Mavrin2LameEnc"));
    settings.Call("SetParamsFromCommandLine", options);
    editor_.Part("FileFormat").Call("SetFormatMP3Ex", settings);
}

std::int32_t Editor::Frames() const {
    return editor_.Part("Position").Number("TotalSamples");
}

std::int32_t Editor::Rate() const {
    return editor_.Part("FileInfo").Number("Frequency");
}

std::int32_t Editor::Channels() const {
    return editor_.Part("FileInfo").Number("Channels");
}

void Editor::Select(std::int64_t start, std::int64_t end) const {
    const binding::LateBound position = editor_.Part("Position");
    position.Put("Selected", start != end);
    position.Put("StartSelect", static_cast<std::int32_t>(start));
    position.Put("EndSelect", static_cast<std::int32_t>(end));
}

std::int64_t Editor::LimitedSamples() const {
    return automation::LimitedSamplesOf(&editor_.Object());
}

void Editor::Edit(const char* work, const std::string& name, auto&& operation) {
    // Every step that can be undone is a copy of the document on the disk.
    editor_.Put("UndoRedoCount", 1);
    Run(work, name, operation);
    const std::int32_t error = editor_.Number("LastErrorNum");
    if (error == 0) return;
    std::string text = binding::EditErrorText(error);
    if (error == kEditFileAccess) text += " " + temporaryFolder_ + SpaceHint(temporaryFolder_);
    throw Failure(name, text);
}

void Editor::Delete(std::int64_t start, std::int64_t end) {
    if (start >= end) return;
    Select(start, end);
    Edit("Cutting", "the sound", [&] { editor_.Call("DeleteSelect"); });
}

void Editor::KeepSelection() {
    const binding::LateBound position = editor_.Part("Position");
    const std::int32_t start = position.Number("StartSelect");
    const std::int32_t end = position.Number("EndSelect");
    // Deleting sound would move them to its place.
    DeleteMarkersOutside(start, end);
    Delete(end, Frames());
    Delete(0, start);
}

void Editor::Append(const InputFile& file) {
    CheckReadable(file.Path());
    Select(Frames(), Frames());
    Edit("Joining", file.Name(), [&] { editor_.Call("PasteFromFile", file.Path()); });
    constexpr std::int64_t kFull = 0x7FFFFFFF - 64;  // less the header of the work file
    if (std::int64_t{Frames()} * Channels() * 2 >= kFull)
        throw Failure(file.Name(), "the result is longer than 2 GiB of 16-bit samples");
}

void Editor::Mix(double documentLevel, const InputFile& file, double level) {
    CheckReadable(file.Path());
    Select(0, 0);
    Edit("Mixing", file.Name(),
         [&] { editor_.Call("MixFromFile", documentLevel, file.Path(), level); });
}

void Editor::Convert(std::int32_t rate, std::int32_t channels) {
    Edit("Converting", "the sound", [&] { editor_.Call("ConvertSampleType", rate, channels); });
    if (Rate() != rate || Channels() != channels)
        throw Failure("cannot convert to " + std::to_string(rate) + " Hz in the temporary folder");
}

std::int32_t Editor::Process(const Operations& operations, OperationCall& call, std::int64_t start,
                             std::int64_t end) {
    if (start >= end) throw Failure(call.Text, "there is no sound to process");
    const std::int32_t before = Frames();
    const binding::LateBound position = editor_.Part("Position");
    // Here the frame at the selection's end is processed too.
    position.Put("Selected", true);
    position.Put("StartSelect", static_cast<std::int32_t>(start));
    position.Put("EndSelect", static_cast<std::int32_t>(end - 1));
    if (call.Name == "InsertSilence") position.Put("Selected", false);
    const std::string version = editor_.Text("TempDirectory");  // the document's work file
    Edit("Processing", call.Text, [&] { operations.Run(call); });
    if (editor_.Text("TempDirectory") == version)
        throw Failure(call.Text, "does not apply to this sound");
    return Frames() - before;
}

void Editor::ShowRange(std::int32_t start, std::int32_t end) const {
    editor_.Call("Zoom", start, end);
}

void Editor::ShowSpectrum() const {
    constexpr std::int32_t kSpectral = 1;
    editor_.Put("TypeView", kSpectral);
}

void Editor::ShowChannel(std::int32_t channel, bool visible) const {
    const binding::LateBound channels = editor_.Part("Channels");
    channels.Put("Num", channel);
    channels.Put("Visible", visible);
}

void Editor::Save(const std::filesystem::path& file, const std::string& name, bool selection) {
    Run("Writing", name, [&] {
        try {
            editor_.Call("Save", file.string(), selection);
        } catch (const binding::CallError& error) {
            if (!Is(error, kFileAccess)) throw;
            throw binding::CallError(error.Status(),
                                     "cannot be written" + SpaceHint(file.parent_path().string()));
        }
    });
}

void Editor::LeaveOutExtraInfo() {
    extraInfo_ = false;
    editor_.Part("FileInfo").Put("SaveExtraInfoEnabled", false);
}

std::vector<std::string> Editor::MissingIn(const std::filesystem::path& file,
                                           bool selection) const {
    std::vector<std::string> missing;
    if (!extraInfo_) return missing;
    const StoredInfo stored(file.string());
    const binding::LateBound info = editor_.Part("FileInfo");
    for (const Tag& tag : Tags())
        if (tag.Describes == Tag::Subject::Sound && !TagText(info, tag).empty() &&
            stored.Text(tag).empty())
            missing.emplace_back(tag.Name);
    const binding::LateBound position = editor_.Part("Position");
    const std::int32_t start = selection ? position.Number("StartSelect") : 0;
    const std::int32_t end = selection ? position.Number("EndSelect") : Frames();
    if (stored.MarkerCount() == 0 && HasMarkersIn(start, end)) missing.emplace_back("markers");
    return missing;
}

Editor::Place Editor::SelectMarker(const binding::LateBound& markers, std::int32_t number) const {
    markers.Put("Num", number);
    return {markers.Number("Position"), markers.Number("Length")};
}

bool Editor::HasMarkersIn(std::int32_t start, std::int32_t end) const {
    const binding::LateBound markers = editor_.Part("Markers");
    for (std::int32_t number = markers.Number("Count"); number > 0; --number) {
        const auto [position, length] = SelectMarker(markers, number);
        if (position <= end && std::int64_t{position} + length >= start) return true;
    }
    return false;
}

void Editor::DeleteMarkersOutside(std::int32_t start, std::int32_t end) const {
    const binding::LateBound markers = editor_.Part("Markers");
    for (std::int32_t number = markers.Number("Count"); number > 0; --number) {
        const auto [position, length] = SelectMarker(markers, number);
        if (position > end || std::int64_t{position} + length < start) markers.Call("Delete");
    }
}

}  // namespace mavrin2::script
