#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>

#include "companions/devices/streams/sample_history.h"

namespace mavrin2::devices {

// What is posted to the thread of the component. Any thread.
using Poster = std::function<void(std::function<void()>)>;

// The interval between two positions, which a host may change at any time.
class TimerInterval {
public:
    void Set(std::int64_t milliseconds);
    std::int64_t Milliseconds() const { return milliseconds_; }

private:
    std::atomic<std::int64_t> milliseconds_ = 50;
};

// Posts the positions of one run. At most one waits for the component's thread, the newest.
class PositionEvents {
public:
    using Receiver = std::function<void(std::int64_t frames, Levels levels)>;

    PositionEvents(Poster post, Receiver receiver);

    // `peaks` are those since the report before. Used on one thread.
    void Report(std::int64_t frames, Levels peaks);

private:
    struct State;

    const Poster post_;
    const std::shared_ptr<State> state_;
};

}  // namespace mavrin2::devices
