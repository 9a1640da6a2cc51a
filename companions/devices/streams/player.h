#pragma once

#include <memory>
#include <optional>

#include "companions/devices/server/sound_server.h"
#include "companions/devices/streams/play_queue.h"
#include "companions/devices/streams/position_events.h"
#include "companions/devices/streams/ticker.h"
#include "platform/posting.h"

namespace mavrin2::devices {

// Who learns how a run goes, on the thread of the component. May do anything from within, even end
// the run.
class PlayerEvents {
public:
    virtual ~PlayerEvents() = default;
    virtual void OnBlockDone() = 0;
    virtual void OnPlayed(std::int64_t frames, Levels levels) = 0;
    virtual void OnEndOfData() = 0;
};

// Playing from one start to the next stop. Made and destroyed on the thread of the component; once
// it is destroyed no event arrives any more.
class PlaybackRun {
public:
    // `server` may be null: such a run, like one that the server refuses, has only an end.
    PlaybackRun(SoundServer* server, const StreamRequest& request, Deadline deadline,
                const TimerInterval& interval, PlayerEvents& events);
    ~PlaybackRun();

    // Whether the device plays.
    bool IsStarted() const { return stream_ != nullptr; }
    const Format& Sound() const { return format_; }
    // Whole interleaved frames, at least one. After the end they are dropped.
    void Queue(std::vector<std::int16_t> block);
    void Choose(OutputChannels channels) { queue_->Choose(channels); }
    // The frames heard last.
    std::vector<std::int16_t> Recent(std::int64_t count);

private:
    void PostEnd(PlayerEvents& events);
    std::optional<std::chrono::milliseconds> Watch(PlayerEvents& events);

    const std::unique_ptr<platform::PostingRun> posting_;
    const Poster post_;
    const Format format_;
    const TimerInterval& interval_;
    const std::shared_ptr<PlayQueue> queue_;
    PositionEvents positions_;
    std::unique_ptr<OutputStream> stream_;
    std::atomic<bool> ended_ = false;
    // Of the watching thread.
    bool complete_ = false;
    std::int64_t reported_ = 0;  // frames
    std::chrono::steady_clock::time_point nextReport_;
    std::optional<Ticker> ticker_;
};

}  // namespace mavrin2::devices
