#pragma once

#include <deque>
#include <mutex>

#include "platform/posting.h"

namespace mavrin2::platform {

// What the queues of both systems have in common: all but waiting for work.
class WorkQueue : public PostingQueue, public std::enable_shared_from_this<WorkQueue> {
public:
    void Post(Work work) final { Add(std::move(work), nullptr); }
    std::unique_ptr<PostingRun> BeginRun() final;

protected:
    // Both are called while the queue is locked, on any thread. When work waits: false if that
    // could not be said, so that it is tried again. When none waits any more.
    virtual bool Wake() = 0;
    virtual void Rest() {}

    // What is there now. Work that posts more of itself does not keep this going, and one within
    // another takes the rest in its order.
    void RunPresent();

    // Drops what is left; what arrives later is dropped too.
    void Close();

private:
    struct State {
        bool Revoked = false;  // read and written while the queue is locked
    };
    struct Item {
        Work Action;
        std::shared_ptr<State> Run;  // null for work of no run
    };
    class Run;

    void Add(Work work, std::shared_ptr<State> run);
    void Revoke(State& run);
    // The first piece of work, or an empty one.
    Item Take();

    std::mutex lock_;
    std::deque<Item> items_;
    bool woken_ = false;
    bool closed_ = false;
};

}  // namespace mavrin2::platform
