#include "companions/devices/streams/ticker.h"

namespace mavrin2::devices {

// A stop token would do, but waiting for one may never end on Windows: there the library's
// semaphores, on which the end of a stop callback waits, can miss that they were released.
Ticker::Ticker(Step step) : step_(std::move(step)), thread_([this] { Run(); }) {}

Ticker::~Ticker() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void Ticker::Run() {
    for (;;) {
        const auto pause = step_();
        std::unique_lock lock(mutex_);
        if (!pause || changed_.wait_for(lock, *pause, [this] { return ending_; })) return;
    }
}

}  // namespace mavrin2::devices
