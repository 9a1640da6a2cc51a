#include "platform/posting.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "platform/common/work_queue.h"
#include "platform/linux/automation/types.h"
#include "platform/linux/base/descriptor.h"

namespace mavrin2::platform {
namespace {

using Clock = std::chrono::steady_clock;

// The descriptor is readable while work waits.
class ThreadQueue final : public WorkQueue {
public:
    ThreadQueue() : signal_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
        if (!signal_) throw std::system_error(errno, std::generic_category(), "eventfd");
    }

    void Pump(std::chrono::milliseconds duration) override {
        // Far beyond any host's patience, and safe to add to a time.
        constexpr std::chrono::milliseconds longest = std::chrono::hours(24 * 365);
        const auto end = Clock::now() + std::min(duration, longest);
        for (;;) {
            RunPresent();
            const auto left = end - Clock::now();
            if (left <= Clock::duration::zero()) return;
            Wait(left);
        }
    }

    int Descriptor() const override { return signal_.Get(); }

    void End() { Close(); }

private:
    void Wait(Clock::duration duration) {
        const auto nanoseconds = std::chrono::nanoseconds(duration).count();
        constexpr auto second = std::chrono::nanoseconds(std::chrono::seconds(1)).count();
        const timespec timeout = {nanoseconds / second, nanoseconds % second};
        pollfd waiting = {signal_.Get(), POLLIN, 0};
        ::ppoll(&waiting, 1, &timeout, nullptr);
    }

    bool Wake() override { return ::eventfd_write(signal_.Get(), 1) == 0; }
    void Rest() override {
        eventfd_t count = 0;
        ::eventfd_read(signal_.Get(), &count);
    }

    platform::Descriptor signal_;
};

// Trivial, so that it can still be read when the thread's other variables are gone.
thread_local bool ThreadIsEnding = false;

struct Owner {
    std::shared_ptr<ThreadQueue> Queue = std::make_shared<ThreadQueue>();

    ~Owner() {
        ThreadIsEnding = true;
        Queue->End();
    }
};

}  // namespace

MAVRIN2_AUTOMATION_API std::shared_ptr<PostingQueue> PostingQueue::OfThisThread() {
    if (ThreadIsEnding) {
        const auto ended = std::make_shared<ThreadQueue>();
        ended->End();
        return ended;
    }
    thread_local Owner owner;
    return owner.Queue;
}

}  // namespace mavrin2::platform
