#pragma once

#include <atomic>

#include "automation/connection_points.h"
#include "companions/kestrin/kernels/progress.h"

namespace mavrin2::kestrin {

// Fires Progress whenever another percent is done, and ends the operation when it was aborted.
class EventProgress final : public Progress {
public:
    EventProgress(const automation::ConnectionPoint& sinks, const std::atomic<bool>& aborted)
        : sinks_(sinks), aborted_(aborted) {}

    void Report(double fraction) override;
    // Fires Done.
    void Finish() const;

private:
    const automation::ConnectionPoint& sinks_;
    const std::atomic<bool>& aborted_;
    int percent_ = -1;
};

}  // namespace mavrin2::kestrin
