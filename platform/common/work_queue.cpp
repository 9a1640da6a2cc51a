#include "platform/common/work_queue.h"

#include <utility>
#include <vector>

namespace mavrin2::platform {

class WorkQueue::Run final : public PostingRun {
public:
    explicit Run(std::shared_ptr<WorkQueue> queue) : queue_(std::move(queue)) {}
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run() override { queue_->Revoke(*state_); }

    std::function<void(Work)> Poster() const override {
        return [queue = queue_, state = state_](Work work) { queue->Add(std::move(work), state); };
    }

private:
    std::shared_ptr<WorkQueue> queue_;
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

std::unique_ptr<PostingRun> WorkQueue::BeginRun() {
    return std::make_unique<Run>(shared_from_this());
}

void WorkQueue::Add(Work work, std::shared_ptr<State> run) {
    const std::lock_guard guard(lock_);
    if (closed_ || (run && run->Revoked)) return;
    items_.push_back({std::move(work), std::move(run)});
    if (!woken_) woken_ = Wake();
}

void WorkQueue::Revoke(State& run) {
    // Destroyed outside of the lock: what the work holds may post.
    std::vector<Item> dropped;
    const std::lock_guard guard(lock_);
    run.Revoked = true;
    std::deque<Item> kept;
    for (Item& item : items_) {
        if (item.Run.get() == &run) {
            dropped.push_back(std::move(item));
        } else {
            kept.push_back(std::move(item));
        }
    }
    items_.swap(kept);
    if (items_.empty() && !dropped.empty()) {
        Rest();
        woken_ = false;
    }
}

void WorkQueue::Close() {
    std::deque<Item> dropped;
    const std::lock_guard guard(lock_);
    closed_ = true;
    dropped.swap(items_);
    Rest();
}

WorkQueue::Item WorkQueue::Take() {
    const std::lock_guard guard(lock_);
    if (items_.empty()) return {};
    Item item = std::move(items_.front());
    items_.pop_front();
    if (items_.empty()) {
        Rest();
        woken_ = false;
    }
    return item;
}

void WorkQueue::RunPresent() {
    std::size_t count = 0;
    {
        const std::lock_guard guard(lock_);
        woken_ = false;
        count = items_.size();
    }
    for (; count != 0; --count) {
        const Item item = Take();
        try {
            if (item.Action) item.Action();
        } catch (...) {
            // The thread that posted it cannot be notified.
        }
    }
    const std::lock_guard guard(lock_);
    if (!items_.empty() && !woken_) woken_ = Wake();
}

}  // namespace mavrin2::platform
