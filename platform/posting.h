#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace mavrin2::platform {

// The work of one run, of a device for example, that can be revoked as a whole. Created and
// destroyed on the thread that owns the queue.
class PostingRun {
public:
    // Revokes: of the work posted for this run, none runs any more, and what waited is destroyed
    // before this returns. Also from within such work, which then runs to its end.
    virtual ~PostingRun() = default;

    // Posts work for this run, as `PostingQueue::Post` does. To be called on any thread, also after
    // the run has ended: then the work is dropped.
    virtual std::function<void(std::function<void()>)> Poster() const = 0;
};

// Work that other threads hand to the one thread that owns a queue. There is one queue per thread,
// created by that thread's first call of `PostingQueue::OfThisThread`.
class PostingQueue {
public:
    using Work = std::function<void()>;

    virtual ~PostingQueue() = default;

    // Any thread. Runs `work` on the owning thread at its next `Pump`, in the order of posting.
    // Work posted to a thread that has ended is dropped.
    virtual void Post(Work work) = 0;

    // Owning thread. Never null; may outlive the queue.
    virtual std::unique_ptr<PostingRun> BeginRun() = 0;

    // Owning thread. Runs what has been posted and what arrives within `duration`; with 0 only what
    // is there now. An exception that leaves a piece of work is swallowed; the rest still runs.
    virtual void Pump(std::chrono::milliseconds duration) = 0;

    // A file descriptor that is readable while work waits, for a host's own loop; -1 where the
    // system has none. Belongs to the queue.
    virtual int Descriptor() const = 0;

    static std::shared_ptr<PostingQueue> OfThisThread();
};

}  // namespace mavrin2::platform
