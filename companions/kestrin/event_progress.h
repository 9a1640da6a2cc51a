#pragma once

#include <atomic>

#include "automation/connection_points.h"
#include "companions/kestrin/kernels/progress.h"

namespace mavrin2::kestrin {

// Fires Progress whenever another percent is done, and ends the operation when it was aborted.
class EventProgress final : public Progress {
public:
    // Limited samples are added to `limited`.
    EventProgress(const automation::ConnectionPoint& sinks, const std::atomic<bool>& aborted,
                  std::int64_t& limited)
        : sinks_(sinks), aborted_(aborted), limited_(limited) {}

    void Report(double fraction) override;
    void AddLimited(std::size_t samples) override {
        limited_ += static_cast<std::int64_t>(samples);
    }
    // Fires Done.
    void Finish() const;

private:
    const automation::ConnectionPoint& sinks_;
    const std::atomic<bool>& aborted_;
    std::int64_t& limited_;
    int percent_ = -1;
};

}  // namespace mavrin2::kestrin
