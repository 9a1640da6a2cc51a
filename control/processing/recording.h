#pragma once

#include <cstdint>

#include "control/editor/services.h"
#include "control/editor/view_state.h"
#include "control/editor/wave_stream.h"
#include "control/processing/recorded_sound.h"
#include "control/processing/recording_companion.h"
#include "control/processing/transport_settings.h"
#include "control/processing/transport_view.h"
#include "platform/clock.h"

namespace mavrin2::processing {

using interfaces::RecordTypeConstants;

// What recording works with: references to parts that belong to the control and outlive it.
struct RecordingServices {
    editor::Document Document;
    editor::Operation Operation;
    editor::Storage Storage;
    editor::Presentation Presentation;
    TransportView& Screen;
    TransportEvents& Events;
    RecordingCompanion& Device;
    editor::RecordState& State;
    const DeviceBuffering& Buffering;
    platform::Clock& Clock;
};

// Records into a new version of the document, from the selection's start on. The new version is a
// copy, so that Undo gives back what the recording has overwritten.
class Recording {
public:
    explicit Recording(const RecordingServices& services)
        : services_(services), sound_(services.Storage.Files) {}
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    // Nothing while the control is busy or without a document. A device that cannot be started is
    // the last error; the recording then waits for Stop. FILEACCESS or MEMORY, and no recording,
    // where the copy cannot be made.
    void Record(RecordTypeConstants type);
    bool Active() const { return active_; }

    // A block can be taken from the device. False when it could not be stored, which has to end the
    // recording.
    bool StoreRecordedBlock();
    // The device has come so far.
    void RecordedTo(const DevicePosition& position);
    // The automatic gain control has another gain.
    void ReportGain(std::int32_t gain) { services_.Events.GainChange(gain); }
    SamplesBlock RecentSamples(std::int32_t frames) {
        return services_.Device.GetRecentSamples(frames);
    }

    void StopDevice();
    // Stores what the device still has, and shows the whole document.
    void Finish();
    // Ends the recording without events; what the device still has is lost.
    void Halt();

private:
    // What came of the block that the device had next.
    enum class Stored { Block, Nothing, Failed };

    bool IsCurrent(std::uint64_t run) const {
        return run_ == run && services_.Document.History.Current() == document_;
    }
    bool MakeVersion();
    editor::ErrorConstants Copy(editor::WaveStream& source, editor::WaveStream& target,
                                const editor::OperationTicket& ticket, editor::StatusGuard& status);
    void StartDevice();
    void CheckLoad();
    Stored StoreBlock();
    void ShowLastSeconds(std::uint64_t run);
    void FollowLiveSound(std::uint64_t run);
    // False when a host has ended the recording.
    bool UpdateRecordCursor(std::int32_t frames);
    void ShowLiveSound();

    RecordingServices services_;
    RecordedSound sound_;
    bool active_ = false;
    std::uint64_t run_ = 0;                      // changes with every start and stop
    editor::DocumentState* document_ = nullptr;  // of the recording
    DeviceBuffering buffering_;                  // of the recording
    platform::ProcessTimes processTimes_;        // at the block before
    std::int32_t lastDevicePosition_ = 0;        // frames
};

}  // namespace mavrin2::processing
