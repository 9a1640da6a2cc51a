#pragma once

#include <cstdint>
#include <memory>

namespace mavrin2::platform {

// Processor time that this process has used since it began, on all its threads together, in units
// of 100 nanoseconds.
struct ProcessTimes {
    std::int64_t Kernel = 0;  // inside the system
    std::int64_t User = 0;    // inside the program
};

// How time passes. Any thread.
class Clock {
public:
    virtual ~Clock() = default;

    // Since some moment before the process began. Never goes back, whatever happens to the date.
    virtual std::int64_t Milliseconds() = 0;

    // Zeros if the system cannot say.
    virtual ProcessTimes TimesOfProcess() = 0;
};

// The running system's. Never null.
std::shared_ptr<Clock> SystemClock();

}  // namespace mavrin2::platform
