#pragma once

#include <atomic>

#include "platform/clock.h"

namespace mavrin2::platform {

// A clock that goes when a test says so. Any thread.
class FakeClock final : public Clock {
public:
    std::int64_t Milliseconds() override { return milliseconds_; }
    ProcessTimes TimesOfProcess() override { return {kernel_, user_}; }

    void Advance(std::int64_t milliseconds) { milliseconds_ += milliseconds; }
    // In milliseconds too; passes no time by itself.
    void Compute(std::int64_t kernel, std::int64_t user) {
        kernel_ += kernel * 10'000;
        user_ += user * 10'000;
    }

private:
    std::atomic<std::int64_t> milliseconds_ = 0;
    std::atomic<std::int64_t> kernel_ = 0;
    std::atomic<std::int64_t> user_ = 0;
};

}  // namespace mavrin2::platform
