#include "platform/clock.h"

#include <chrono>

#include "platform/automation.h"

namespace mavrin2::platform {
namespace {

std::int64_t In100Nanoseconds(const FILETIME& time) {
    return std::int64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

class WindowsClock final : public Clock {
public:
    std::int64_t Milliseconds() override {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
    }

    ProcessTimes TimesOfProcess() override {
        FILETIME created = {};
        FILETIME exited = {};
        FILETIME kernel = {};
        FILETIME user = {};
        if (!::GetProcessTimes(::GetCurrentProcess(), &created, &exited, &kernel, &user)) return {};
        return {In100Nanoseconds(kernel), In100Nanoseconds(user)};
    }
};

}  // namespace

std::shared_ptr<Clock> SystemClock() {
    return std::make_shared<WindowsClock>();
}

}  // namespace mavrin2::platform
