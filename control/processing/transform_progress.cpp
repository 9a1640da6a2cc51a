#include "control/processing/transform_progress.h"

#include <algorithm>

namespace mavrin2::processing {

void TransformProgress::Report(std::int32_t percent) {
    if (!passes_ || !passes_->edit_.IsCurrent()) return;
    const Passes& passes = *passes_;
    // The selection's length as an unsigned 32-bit number, as it has always been counted.
    const double length = static_cast<std::uint32_t>(passes.length_.Count());
    const double done = length / 100 * (passes.done_ * 100.0 + percent) / passes.count_;
    const double total = std::max(static_cast<double>(passes.total_.Count()), 1.0);
    const double part = (static_cast<double>(passes.start_.Count()) + done) / total * 100;
    events_.BlockOperation(static_cast<int>(std::clamp(part, 0.0, 100.0)));
}

}  // namespace mavrin2::processing
