#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "automation/com_ptr.h"
#include "automation/event_sink.h"
#include "automation/safe_array.h"
#include "companions/contracts/pindle.h"

namespace mavrin2::editor {

// The CD grabber as the editor calls it. Each method is one call of the contract; what they return
// is ignored but for the outcome of PrepareTrack and ReadBlock. Nothing the companion throws
// escapes.
class GrabberCompanion {
public:
    using Samples = automation::SafeArray<std::int16_t>;

    // `progress` receives what the companion reports while a block is read, in percent.
    explicit GrabberCompanion(std::function<void(std::int32_t percent)> progress)
        : progress_(std::move(progress)) {}

    // Listens to its events from then on.
    void Attach(automation::ComPtr<contracts::IPindleCD2> companion);
    void Disconnect() { events_.Close(); }
    void Release();

    void GrabberInit();
    void GrabberClose();
    void OpenDrive();
    std::int32_t DriveCount();
    void SetDriveNum(std::int32_t number);   // from 1
    std::string DriveName();                 // of the selected drive, UTF-8
    void SetReadMode(std::int32_t mode);     // 0: verify
    void SetTrackIndex(std::int32_t index);  // from 0
    // 16-bit values of the track, both channels together.
    std::int64_t TrackValues();
    void StartReading();
    bool PrepareTrack();
    void StopReading();
    // The next `count` sectors; no array, or an empty one, at the end. False when they could not be
    // read.
    bool ReadBlock(std::int32_t count, Samples& samples);

    // Changes whenever an import begins or ends: an import can tell whether another one, started
    // from inside an event, has used the companion since.
    std::uint64_t Session() const { return session_; }

private:
    template <class... Parameters, class... Arguments>
    HRESULT Call(HRESULT (STDMETHODCALLTYPE contracts::IPindleCD2::*method)(Parameters...),
                 Arguments... arguments);

    std::function<void(std::int32_t)> progress_;
    automation::ComPtr<contracts::IPindleCD2> companion_;
    automation::EventConnection events_;
    std::uint64_t session_ = 0;
};

}  // namespace mavrin2::editor
