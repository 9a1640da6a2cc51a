#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "hosts/binding/event_connection.h"
#include "hosts/binding/late_binding.h"
#include "hosts/script/commands/input_file.h"
#include "hosts/script/commands/operations.h"
#include "hosts/script/commands/progress_bar.h"

namespace mavrin2::script {

// The sound editor as the commands use it. Long operations show their progress on a terminal and
// throw Interruption when the user asks to stop. All members throw Failure or CallError.
class Editor {
public:
    // `progress`: whether it shows.
    explicit Editor(bool progress = true);
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    // Opens a sound file or a track of a CD as the document.
    void Open(const InputFile& file);
    // An empty document of that rate (hertz) with 1 or 2 channels.
    void New(std::int32_t rate, std::int32_t channels);

    std::string Format() const;
    std::int32_t Frames() const;
    std::int32_t Rate() const;
    std::int32_t Channels() const;

    // Samples that were limited to full scale in what this editor has done so far; 0 if its
    // components cannot say.
    std::int64_t LimitedSamples() const;

    // Selects frames from `start` to before `end`.
    void Select(std::int64_t start, std::int64_t end) const;

    // Deletes frames from `start` to before `end`.
    void Delete(std::int64_t start, std::int64_t end);
    // Deletes all but the selection.
    void KeepSelection();
    // Adds a sound file at the end, in the rate and channels of the document.
    void Append(const InputFile& file);
    // Mixes a sound file into the document from its beginning, as long as both go on. The levels
    // are in percent; that of the document applies to the mixed part only.
    void Mix(double documentLevel, const InputFile& file, double level);
    // Converts the document to that rate (hertz) and 1 or 2 channels. No selection is left.
    void Convert(std::int32_t rate, std::int32_t channels);

    // The operations that the control has.
    Operations Transform() const {
        return {editor_.Part("Transform"), {"operation", "", "mavrin2 operations"}};
    }
    // The formats that it can be told to save in.
    Operations OutputFormats() const {
        return {editor_.Part("FileFormat"), {"format", "SetFormat", "mavrin2 convert --help"}};
    }
    // MP3 with options as LAME's own program has them.
    void ChooseMp3(const std::string& options) const;
    // Whether the ends of what an operation makes are blended in with what was there.
    void BlendEnds(bool blended) const { editor_.Part("Transform").Put("SmoothEnabled", blended); }
    // Runs one on frames `start` to before `end`, which are then selected; InsertSilence inserts at
    // `start`. Returns the number of frames that the document gained.
    std::int32_t Process(const Operations& operations, OperationCall& call, std::int64_t start,
                         std::int64_t end);

    // What a picture shows: frames from `start` to before `end`; the spectrum in place of the
    // waveform; a channel, counted from 1, or not.
    void ShowRange(std::int32_t start, std::int32_t end) const;
    void ShowSpectrum() const;
    void ShowChannel(std::int32_t channel, bool visible) const;
    // The control, for a window to show, and for what plays and records.
    IDispatch& Control() const { return editor_.Object(); }

    // Save then writes neither tags nor markers.
    void LeaveOutExtraInfo();
    // Writes the document, or its selection. Messages call the file `name`.
    void Save(const std::filesystem::path& file, const std::string& name, bool selection);
    // What a file lacks that Save wrote, of the document or its selection: names of tags,
    // "markers".
    std::vector<std::string> MissingIn(const std::filesystem::path& file, bool selection) const;

private:
    struct Place {
        std::int32_t Position;  // sample frames
        std::int32_t Length;
    };

    void OpenTrack(const std::string& file);
    // Of the markers, by number; the one with that number is then the current one.
    Place SelectMarker(const binding::LateBound& markers, std::int32_t number) const;
    bool HasMarkersIn(std::int32_t start, std::int32_t end) const;
    void DeleteMarkersOutside(std::int32_t start, std::int32_t end) const;
    void OpenDocument(const InputFile& file);
    void Run(const char* work, const std::string& name, auto&& operation);
    // Runs an edit, which reports its failure by a number. `name` is what cannot be read if it is
    // that.
    void Edit(const char* work, const std::string& name, auto&& operation);
    void OnEvent(DISPID event, std::span<const VARIANT> arguments);

    binding::LateBound editor_;
    std::string temporaryFolder_;  // empty if no folder is usable
    bool extraInfo_ = true;
    ProgressBar bar_;
    const char* work_ = "";
    DISPID progress_ = DISPID_UNKNOWN;
    binding::EventConnection events_;
};

}  // namespace mavrin2::script
