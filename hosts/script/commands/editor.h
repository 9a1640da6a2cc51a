#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

#include "hosts/script/commands/progress_bar.h"
#include "hosts/script/late_binding/event_connection.h"
#include "hosts/script/late_binding/late_binding.h"

namespace mavrin2::script {

// The sound editor as the commands use it. Long operations show their progress on a terminal and
// throw Interruption when the user asks to stop. All members throw Failure or CallError.
class Editor {
public:
    Editor();
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    // Opens a sound file as the document.
    void Open(const std::string& file);

    std::string Format() const;
    std::int32_t Frames() const;
    std::int32_t Rate() const;
    std::int32_t Channels() const;

    // Selects frames from `start` to before `end`.
    void Select(std::int32_t start, std::int32_t end) const;

    // What a picture shows: frames from `start` to before `end`; the spectrum in place of the
    // waveform; a channel, counted from 1, or not.
    void ShowRange(std::int32_t start, std::int32_t end) const;
    void ShowSpectrum() const;
    void ShowChannel(std::int32_t channel, bool visible) const;
    // The control, for a window to show.
    IUnknown& Control() const { return editor_.Object(); }

    // Writes the document, or its selection. Messages call the file `name`.
    void Save(const std::filesystem::path& file, const std::string& name, bool selection);

private:
    void Run(const char* work, const std::string& name, auto&& operation);
    void OnEvent(DISPID event, std::span<const VARIANT> arguments);

    LateBound editor_;
    ProgressBar bar_;
    const char* work_ = "";
    DISPID progress_ = DISPID_UNKNOWN;
    EventConnection events_;
};

}  // namespace mavrin2::script
