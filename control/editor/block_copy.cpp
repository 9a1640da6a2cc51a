#include "control/editor/block_copy.h"

#include <algorithm>

#include "control/signal/mul_div.h"

namespace mavrin2::editor {

std::uint32_t BlockSize(const EditSettings& settings, const WaveStream& source,
                        std::int64_t stretch) {
    const std::uint32_t second = std::max(source.Format().BytesPerSecond, 1u);
    const std::int32_t block =
        signal::MulDiv(settings.FileBufferSize, static_cast<std::int32_t>(second), 1000);
    return block > 0 && stretch > block ? static_cast<std::uint32_t>(block) : second;
}

int PercentRead(const WaveStream& source) {
    if (source.Length() == 0) return 100;
    return static_cast<int>(std::min(1.0, static_cast<double>(source.DataPos()) / source.Length()) *
                            100);
}

CopyEnd CopyBlocks(WaveStream& source, WaveStream& target, std::int64_t end, std::uint32_t block,
                   BlockBuffer& buffer, const std::function<bool()>& proceed) {
    for (;;) {
        const std::int64_t left = std::max<std::int64_t>(end - target.Length(), 0);
        const auto copied = source.CopyTo(
            target, static_cast<std::uint32_t>(std::min<std::int64_t>(block, left)), buffer);
        if (!copied) return CopyEnd::Failed;
        if (*copied == 0) return CopyEnd::Complete;
        if (!proceed()) return CopyEnd::Stopped;
    }
}

}  // namespace mavrin2::editor
