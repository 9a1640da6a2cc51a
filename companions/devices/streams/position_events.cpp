#include "companions/devices/streams/position_events.h"

#include <algorithm>
#include <mutex>

namespace mavrin2::devices {

void TimerInterval::Set(std::int64_t milliseconds) {
    milliseconds_ = std::clamp<std::int64_t>(milliseconds, 5, 1000);
}

struct PositionEvents::State {
    explicit State(Receiver receiver) : Receive(std::move(receiver)) {}

    const Receiver Receive;
    std::mutex Mutex;
    bool Waiting = false;
    std::int64_t Frames = 0;
    Levels Peaks;
};

PositionEvents::PositionEvents(Poster post, Receiver receiver)
    : post_(std::move(post)), state_(std::make_shared<State>(std::move(receiver))) {}

void PositionEvents::Report(std::int64_t frames, Levels peaks) {
    {
        const std::lock_guard lock(state_->Mutex);
        state_->Frames = frames;
        if (state_->Waiting) {
            state_->Peaks.Include(peaks);
            return;
        }
        state_->Waiting = true;
        state_->Peaks = peaks;
    }
    post_([state = state_] {
        std::int64_t latest = 0;
        Levels levels;
        {
            const std::lock_guard lock(state->Mutex);
            state->Waiting = false;
            latest = state->Frames;
            levels = state->Peaks;
        }
        state->Receive(latest, levels);
    });
}

}  // namespace mavrin2::devices
