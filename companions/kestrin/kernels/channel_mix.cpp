#include "companions/kestrin/kernels/channel_mix.h"

namespace mavrin2::kestrin {

void ChannelMix::Process(std::span<float> block) {
    const Gains gains = gains_;
    for (std::size_t i = 0; i + 1 < block.size(); i += 2) {
        const float left = block[i];
        const float right = block[i + 1];
        block[i] = left * gains.LeftToLeft + right * gains.RightToLeft;
        block[i + 1] = left * gains.LeftToRight + right * gains.RightToRight;
    }
}

}  // namespace mavrin2::kestrin
