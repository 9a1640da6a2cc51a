#pragma once

#include <cstdint>

#include "companions/contracts/constants.h"
#include "control/editor/undo_history.h"

namespace mavrin2::editor {

using contracts::ErrorConstants;

// What the control is doing, as hosts read it.
enum class StatusConstants : std::int16_t {
    Idle = 0,
    Playing = 1,
    Recording = 2,
    Opening = 3,
    Saving = 4,
    Paused = 5,
    CopyingBlock = 6,  // out of the document, into an array or the clip file
    BuildingOverview = 7,
    DeleteSelect = 8,
    Paste = 9,
    PasteFromFile = 10,
    Mix = 11,
    MixFromFile = 12,
    ConvertSampleType = 20,
    // The operations of the Transform object.
    Resample = 30,
    PitchShift = 31,
    TimeStretch = 32,
    Trim = 35,
    DeleteSilence = 36,
    InsertSilence = 37,
    AddNoise = 38,
    MixStereoChannels = 39,
    Silence = 40,
    Reverse = 41,
    Invert = 42,
    Amplify = 43,
    Fade = 44,
    Normalize = 45,
    Vibrato = 46,
    Envelope = 47,
    Compressor = 48,
    Expander = 49,
    Delay = 50,
    Flanger = 51,
    Chorus = 52,
    Phaser = 53,
    Reverb = 54,
    LowPassFilter = 55,
    HighPassFilter = 56,
    BandPassFilter = 57,
    NotchFilter = 58,
    PeakEQFilter = 59,
    Equalizer = 60,
    LowShelfFilter = 61,
    HighShelfFilter = 62,
    FFTFilter = 63,
    FIRFilter = 64
};

// One for the whole control. An operation sets the status through a StatusGuard, and stops at its
// next block when the status has become Idle.
class OperationStatus {
public:
    StatusConstants Status() const { return status_; }
    bool Idle() const { return status_ == StatusConstants::Idle; }
    // What a host's Stop does, whatever is running.
    void Stop() { status_ = StatusConstants::Idle; }
    // What plays or records lasts beyond the call that has begun it: Playing, Paused or Recording.
    void BeginTransport(StatusConstants value) { status_ = value; }

    ErrorConstants LastError = ErrorConstants::NOERRORS;

    // Whether an operation that Stop has cancelled has not returned yet.
    bool Cancelling() const { return Idle() && held_ > 0; }

private:
    friend class StatusGuard;
    StatusConstants status_ = StatusConstants::Idle;
    int held_ = 0;  // guards that have set the status and not ended
};

// Numbers the operations of one control.
class OperationCounter {
public:
    std::uint64_t Next() { return ++last_; }
    std::uint64_t Last() const { return last_; }

    // Whether an operation is running, or one that was overtaken has not returned yet: it may still
    // have files open.
    bool AnyRuns() const { return running_ > 0; }
    void Enter() { ++running_; }
    void Leave() { --running_; }

private:
    std::uint64_t last_ = 0;
    int running_ = 0;
};

// Held by an operation while it runs. A host may start another one from inside an event: the first
// then finds that its ticket is no longer current, discards its own files and touches nothing else.
class OperationTicket {
public:
    OperationTicket(OperationCounter& counter, const UndoHistory& history)
        : OperationTicket(counter, history, counter.Next()) {}
    OperationTicket(const OperationTicket&) = delete;
    OperationTicket& operator=(const OperationTicket&) = delete;
    ~OperationTicket() { counter_.Leave(); }

    // For what may happen during an operation without taking its place.
    static OperationTicket Observe(OperationCounter& counter, const UndoHistory& history) {
        return OperationTicket(counter, history, counter.Last());
    }

    bool IsCurrent() const { return counter_.Last() == number_ && history_.Current() == state_; }

    // The operation itself has changed the current version.
    void Moved() { state_ = history_.Current(); }

private:
    OperationTicket(OperationCounter& counter, const UndoHistory& history, std::uint64_t number)
        : counter_(counter), history_(history), number_(number), state_(history.Current()) {
        counter_.Enter();
    }

    OperationCounter& counter_;
    const UndoHistory& history_;
    std::uint64_t number_;
    const DocumentState* state_;
};

// The status that an operation sets. At the end the status is again what it was before, unless Stop
// was called or another operation has taken the place of this one.
class StatusGuard {
public:
    StatusGuard(OperationStatus& status, const OperationTicket& ticket)
        : status_(status), ticket_(ticket), before_(status.Status()) {}
    StatusGuard(OperationStatus& status, const OperationTicket& ticket, StatusConstants value)
        : StatusGuard(status, ticket) {
        Set(value);
    }
    StatusGuard(const StatusGuard&) = delete;
    StatusGuard& operator=(const StatusGuard&) = delete;
    ~StatusGuard() { End(); }

    // Also after a Stop: the next part of the operation runs in spite of it.
    void Set(StatusConstants value) {
        if (!ticket_.IsCurrent()) return;
        if (own_ == StatusConstants::Idle) ++status_.held_;
        status_.status_ = own_ = value;
    }
    void End() {
        if (own_ != StatusConstants::Idle) --status_.held_;
        if (ticket_.IsCurrent() && status_.status_ == own_) status_.status_ = before_;
        own_ = StatusConstants::Idle;
    }

private:
    OperationStatus& status_;
    const OperationTicket& ticket_;
    StatusConstants before_;
    StatusConstants own_ = StatusConstants::Idle;  // until the first Set and after the end
};

}  // namespace mavrin2::editor
