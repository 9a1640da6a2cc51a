#include "companions/kestrin/kernels/echo.h"

#include <algorithm>

#include "companions/kestrin/kernels/quiet_floor.h"

namespace mavrin2::kestrin {

void Echo::Process(std::span<float> block) {
    while (!block.empty()) {
        // Up to the end of the ring nothing that is read was written in this round.
        const std::size_t count = std::min(block.size(), ring_.size() - at_);
        const float mix = mix_;
        const float feedback = feedback_;
        float* const past = ring_.data() + at_;
        float* const value = block.data();
        for (std::size_t i = 0; i < count; ++i) {
            const float delayed = past[i];
            past[i] = value[i] + delayed * feedback + kQuietFloor;
            value[i] += delayed * mix;
        }
        at_ = at_ + count == ring_.size() ? 0 : at_ + count;
        block = block.subspan(count);
    }
}

}  // namespace mavrin2::kestrin
