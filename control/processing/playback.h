#pragma once

#include <cstdint>
#include <functional>

#include "control/editor/services.h"
#include "control/editor/view_state.h"
#include "control/processing/playback_companion.h"
#include "control/processing/transport_settings.h"
#include "control/processing/transport_view.h"

namespace mavrin2::processing {

using interfaces::PlayTypeConstants;

// What playback works with: references to parts that belong to the control and outlive it.
struct PlaybackServices {
    editor::Document Document;
    editor::Operation Operation;
    platform::FileSystem& Files;
    editor::DocumentView& View;
    editor::ViewRange& Range;
    TransportView& Screen;
    TransportEvents& Events;
    PlaybackCompanion& Player;
    editor::PlayState& State;
    const editor::DragState& Drag;
    const editor::EditSettings& Settings;
    const PlaySpeed& Speed;
    const DeviceBuffering& Buffering;
};

// Plays the document: keeps a few blocks of the work file queued at the player, and shows how far
// it has come.
class Playback {
public:
    explicit Playback(const PlaybackServices& services) : services_(services) {}
    Playback(const Playback&) = delete;
    Playback& operator=(const Playback&) = delete;

    // Nothing while the control is busy, without sound, or where the selection's start is past the
    // end of the view. A device that cannot be started is the last error; the run then ends by
    // itself.
    void Play(PlayTypeConstants type);
    void Pause();
    // Why the device could not be started; the run has ended then.
    editor::ErrorConstants Continue();
    // Plays from the selection's start, as the last Play did, when it plays now. `meanwhile` runs
    // when the device is silent and the control idle.
    void Restart(const std::function<void()>& meanwhile);

    // Playing or paused.
    bool Active() const { return phase_ != Phase::Stopped; }
    bool Playing() const { return phase_ == Phase::Playing; }

    // The player has room for a block.
    void FeedBlock();
    // The player has come so far.
    void PlayedTo(const DevicePosition& position);

    SamplesBlock RecentSamples(std::int32_t frames) {
        return services_.Player.GetRecentSamples(frames);
    }

    // Silence, and no event of a run any more.
    void StopDevice();
    // Ends the run that is active, with the events of its end.
    void Finish();
    // The same without events.
    void Halt();

private:
    enum class Phase { Stopped, Playing, Paused };

    bool IsCurrent(std::uint64_t run) const {
        return run_ == run && services_.Document.History.Current() == document_;
    }
    editor::DocumentState& Document() const { return *services_.Document.History.Current(); }
    signal::Bytes SmoothBytes() const;
    // Where playing ends; `smooth` is left out at the end of a selection.
    signal::Bytes End(signal::Bytes smooth) const;
    signal::Bytes BlockLength() const;

    bool Begin();
    void ChooseOutputChannels();
    void SetPlayPosition(signal::Bytes position);
    // False when a host has ended the run meanwhile.
    bool ShowSelectionStart(std::uint64_t run);
    bool FeedBlocks(std::uint64_t run, int count);
    bool UpdatePlayCursor(std::int32_t frames);
    void Advance(std::int32_t frames);
    bool TurnPage(std::uint64_t run);
    bool PlayAgain(const std::function<void()>& meanwhile);
    void BecomeIdle();
    void EndRun();

    PlaybackServices services_;
    Phase phase_ = Phase::Stopped;
    std::uint64_t run_ = 0;                            // changes with every start and stop
    const editor::DocumentState* document_ = nullptr;  // of the run
    DeviceBuffering buffering_;                        // of the run
    signal::Bytes streamPosition_;                     // where the next block is read
    std::int32_t lastDevicePosition_ = 0;              // frames
    signal::Bytes startPosition_;  // where the device began, or the speed has changed
    signal::Bytes played_;         // by the device since then
    float percent_ = 100;          // of the duration since then
};

}  // namespace mavrin2::processing
