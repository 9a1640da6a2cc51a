#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

#include "hosts/script/commands/progress_bar.h"
#include "hosts/script/late_binding/event_connection.h"
#include "hosts/script/late_binding/late_binding.h"

namespace mavrin2::script {

// The sound editor as the commands use it. What takes long shows its progress on a terminal, and
// throws Interruption once the user has asked to stop. Everything throws Failure or CallError.
class Editor {
public:
    Editor();
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    // Opens a sound file; afterwards there is a document.
    void Open(const std::string& file);

    std::string Format() const;
    std::int32_t Frames() const;
    std::int32_t Rate() const;
    std::int32_t Channels() const;

    // In frames; `end` is the first that does not belong to it.
    void Select(std::int32_t start, std::int32_t end) const;

    // What a picture shows: frames from `start` to before `end`; a spectrum instead of the
    // waveform; one channel, counted from 1, or not.
    void ShowRange(std::int32_t start, std::int32_t end) const;
    void ShowSpectrum() const;
    void ShowChannel(std::int32_t channel, bool visible) const;
    // For a window to show it.
    IUnknown& Control() const { return editor_.Object(); }

    // Writes the document, or its selection. `name` stands for the file in messages.
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
