#include "platform/posting.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <cerrno>
#include <deque>
#include <mutex>
#include <optional>
#include <system_error>

#include "platform/linux/automation/types.h"
#include "platform/linux/base/descriptor.h"

namespace mavrin2::platform {
namespace {

using Clock = std::chrono::steady_clock;

class ThreadQueue final : public PostingQueue {
public:
    ThreadQueue() : signal_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
        if (!signal_) throw std::system_error(errno, std::generic_category(), "eventfd");
    }

    void Post(Work work) override {
        const std::lock_guard guard(guard_);
        if (ended_) return;
        works_.push_back(std::move(work));
        if (works_.size() == 1) Raise();
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

    // Drops what is left; what arrives later is dropped too.
    void End() {
        std::deque<Work> dropped;
        const std::lock_guard guard(guard_);
        ended_ = true;
        dropped.swap(works_);
        Lower();
    }

private:
    // Work that posts more of itself does not keep this going, and an inner pump takes the rest in
    // its order.
    void RunPresent() {
        std::size_t count = 0;
        {
            const std::lock_guard guard(guard_);
            count = works_.size();
        }
        for (; count != 0; --count) {
            const auto work = Take();
            if (!work) return;
            try {
                if (*work) (*work)();
            } catch (...) {
                // Whoever posted it is on another thread and cannot be told.
            }
        }
    }

    std::optional<Work> Take() {
        const std::lock_guard guard(guard_);
        if (works_.empty()) return std::nullopt;
        std::optional<Work> work(std::move(works_.front()));
        works_.pop_front();
        if (works_.empty()) Lower();
        return work;
    }

    void Wait(Clock::duration duration) {
        const auto nanoseconds = std::chrono::nanoseconds(duration).count();
        constexpr auto second = std::chrono::nanoseconds(std::chrono::seconds(1)).count();
        const timespec timeout = {nanoseconds / second, nanoseconds % second};
        pollfd waiting = {signal_.Get(), POLLIN, 0};
        ::ppoll(&waiting, 1, &timeout, nullptr);
    }

    void Raise() {
        // Cannot fail: the count is 0 before.
        ::eventfd_write(signal_.Get(), 1);
    }
    void Lower() {
        eventfd_t count = 0;
        ::eventfd_read(signal_.Get(), &count);
    }

    platform::Descriptor signal_;
    std::mutex guard_;
    std::deque<Work> works_;
    bool ended_ = false;
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
