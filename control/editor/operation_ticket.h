#pragma once

#include <cstdint>

#include "control/editor/undo_history.h"

namespace mavrin2::editor {

// Numbers the operations of one control.
class OperationCounter {
public:
    std::uint64_t Next() { return ++last_; }
    std::uint64_t Last() const { return last_; }

    // Whether an operation is on the way, be it one that has been overtaken: it may still have
    // files of its own.
    bool AnyRuns() const { return running_ > 0; }
    void Enter() { ++running_; }
    void Leave() { --running_; }

private:
    std::uint64_t last_ = 0;
    int running_ = 0;
};

// Held by an operation while it runs. A host may start another one from inside an event: the first
// then finds its ticket out of date, gives up what is its own and touches nothing else.
class OperationTicket {
public:
    OperationTicket(OperationCounter& counter, const UndoHistory& history)
        : OperationTicket(counter, history, counter.Next()) {}
    OperationTicket(const OperationTicket&) = delete;
    OperationTicket& operator=(const OperationTicket&) = delete;
    ~OperationTicket() { counter_.Leave(); }

    // For what may happen during an operation and does not take its place.
    static OperationTicket Observe(OperationCounter& counter, const UndoHistory& history) {
        return OperationTicket(counter, history, counter.Last());
    }

    bool IsCurrent() const { return counter_.Last() == number_ && history_.Current() == state_; }

    // The operation itself has moved the history.
    void Moved() { state_ = history_.Current(); }

private:
    OperationTicket(OperationCounter& counter, const UndoHistory& history, std::uint64_t number)
        : counter_(counter), history_(history), number_(number), state_(history.Current()) {
        counter_.Enter();
    }

    OperationCounter& counter_;
    const UndoHistory& history_;
    std::uint64_t number_;
    const DocumentState* state_;
};

}  // namespace mavrin2::editor
