#include "platform/clock.h"

#include <gtest/gtest.h>

#include "platform/memory/fake_clock.h"

namespace {

using mavrin2::platform::Clock;
using mavrin2::platform::FakeClock;
using mavrin2::platform::ProcessTimes;

// Clocks whose next moment can be reached: by reading them again and again, or by saying so.
struct RealClock {
    std::shared_ptr<Clock> Time = mavrin2::platform::SystemClock();
    void Work() {}
};
struct ManualClock {
    std::shared_ptr<FakeClock> Time = std::make_shared<FakeClock>();
    void Work() {
        Time->Advance(1);
        Time->Compute(0, 1);
    }
};

template <typename Kind>
class Clocks : public testing::Test {
protected:
    Kind clock_;
};

using Kinds = testing::Types<RealClock, ManualClock>;
TYPED_TEST_SUITE(Clocks, Kinds);

TYPED_TEST(Clocks, GoOnWhileTheProcessComputes) {
    Clock& clock = *this->clock_.Time;
    const auto start = clock.Milliseconds();
    const ProcessTimes before = clock.TimesOfProcess();
    ProcessTimes now = before;
    auto last = start;
    while (last == start || now.Kernel + now.User == before.Kernel + before.User) {
        this->clock_.Work();
        const auto time = clock.Milliseconds();
        ASSERT_GE(time, last);
        last = time;
        now = clock.TimesOfProcess();
        ASSERT_GE(now.Kernel, before.Kernel);
        ASSERT_GE(now.User, before.User);
    }
}

}  // namespace
