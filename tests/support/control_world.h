#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "control/server/control.h"
#include "platform/memory/memory_ports.h"
#include "tests/support/event_recorder.h"
#include "tests/support/fake_dusoro.h"
#include "tests/support/fake_kestrin.h"
#include "tests/support/fake_lame.h"
#include "tests/support/fake_ontiva.h"
#include "tests/support/fake_pindle.h"
#include "tests/support/fake_rimbal.h"
#include "tests/support/fake_velto.h"

namespace mavrin2::tests {

using Samples = std::vector<std::int16_t>;

// `count` values from `first` on, each one more than the one before.
Samples Ramp(std::size_t count, std::int16_t first = 0);

// The samples without those from `first` to before `last`.
Samples Without(Samples samples, std::size_t first, std::size_t last);

// The bytes of a work file, written down field by field.
std::vector<std::byte> WorkFileOf(std::uint32_t frequency, std::uint16_t channels,
                                  const Samples& samples);

// What a property gives.
template <class Value, class Interface>
Value Got(Interface& object, HRESULT (STDMETHODCALLTYPE Interface::*getter)(Value*)) {
    Value value{};
    EXPECT_EQ((object.*getter)(&value), S_OK);
    return value;
}

// A control with everything around it: a system of memory, a file companion that is a fake, a host
// that writes down the events. Start makes the control; until then what it is made of can be set.
struct ControlWorld {
    platform::MemoryPorts System;
    automation::ComPtr<FakeDusoro> Dusoro = FakeDusoro::Make();
    automation::ComPtr<FakeDusoro> Private = FakeDusoro::Make();  // any further one
    HRESULT CompanionStatus = S_OK;                               // of creating a file companion
    CLSID MissingCompanion{};                                     // one that is not registered
    automation::ComPtr<FakeLame> Lame = FakeLame::Make();
    automation::ComPtr<FakeKestrin> Kestrin = FakeKestrin::Make();
    automation::ComPtr<FakeOntiva> Ontiva = FakeOntiva::Make();
    automation::ComPtr<FakePindle> Pindle = FakePindle::Make();
    automation::ComPtr<FakeVelto> Velto = FakeVelto::Make();
    automation::ComPtr<FakeRimbal> Rimbal = FakeRimbal::Make();
    automation::ComPtr<EventRecorder> Events = automation::MakeCounted<EventRecorder>();

    automation::ComPtr<interfaces::IMavrin2> Control;
    automation::ComPtr<interfaces::IMavrin2Position> Position;
    automation::ComPtr<interfaces::IMavrin2FileInfo> FileInfo;

    server::ControlEnvironment Environment() const;
    void Start();
    // The host lets everything go.
    void End();

    // A document of these samples, as a sound file that was opened, in the smallest blocks: a tenth
    // of a second of 1000 Hz is 100 frames.
    void OpenSound(const Samples& samples, std::int32_t channels = 1);
    void NewSound() {
        Control->New(interfaces::FrequencyConstants{1000}, interfaces::ChannelsConstants::MONO);
    }
    HRESULT Open(const std::string& name = "/sound.wav",
                 interfaces::FormatTypeConstants type = interfaces::FormatTypeConstants::DEFAULT);
    // A disc whose first track has these samples, both channels together.
    HRESULT OpenTrack(const Samples& samples);
    HRESULT Save(const std::string& name = "/out.wav", std::int16_t selected = 0,
                 interfaces::FormatTypeConstants type = interfaces::FormatTypeConstants::DEFAULT);
    HRESULT PasteFromFile(const std::string& name = "/other.ogg");
    HRESULT MixFromFile(float document, float material, const std::string& name = "/other.ogg");
    HRESULT PutAudioArray(const Samples& samples);
    // The clip file, as Copy has written it.
    static constexpr const char* ClipFile = "/tmp/private/KovClipBoard.wav";
    void SetClip(std::uint32_t frequency, std::uint16_t channels, const Samples& samples) {
        System.Files->AddFile(ClipFile, WorkFileOf(frequency, channels, samples));
    }
    // Frames `first` to before `end`.
    void Select(std::int32_t first, std::int32_t end);

    editor::UndoHistory& History();
    std::filesystem::path WorkFile();  // of the open document
    Samples DocumentSamples();
    std::string FormatString();
    LONG Status() { return Got(*Control, &interfaces::IMavrin2::get_Status); }
    LONG LastError() {
        return static_cast<LONG>(Got(*Control, &interfaces::IMavrin2::get_LastErrorNum));
    }
    bool UndoEnabled() { return Got(*Control, &interfaces::IMavrin2::get_UndoEnabled) == 1; }
    bool RedoEnabled() { return Got(*Control, &interfaces::IMavrin2::get_RedoEnabled) == 1; }
    // "select 1..2 view 0..9 of 9", with "selected" for "select" where something is.
    std::string Positions();
    // The temporary files there are.
    std::vector<std::filesystem::path> TempFiles() const;
};

}  // namespace mavrin2::tests
