#include "platform/clock.h"

#include <sys/resource.h>

#include <chrono>

namespace mavrin2::platform {
namespace {

std::int64_t In100Nanoseconds(const timeval& time) {
    return std::int64_t{time.tv_sec} * 10'000'000 + std::int64_t{time.tv_usec} * 10;
}

class LinuxClock final : public Clock {
public:
    std::int64_t Milliseconds() override {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
    }

    ProcessTimes TimesOfProcess() override {
        rusage usage = {};
        if (::getrusage(RUSAGE_SELF, &usage) != 0) return {};
        return {In100Nanoseconds(usage.ru_stime), In100Nanoseconds(usage.ru_utime)};
    }
};

}  // namespace

std::shared_ptr<Clock> SystemClock() {
    return std::make_shared<LinuxClock>();
}

}  // namespace mavrin2::platform
