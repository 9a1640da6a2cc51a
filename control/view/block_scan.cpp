#include "control/view/block_scan.h"

#include <algorithm>

namespace mavrin2::view {
namespace {

void Add(std::int32_t value, std::int32_t& low, std::int32_t& high) {
    if (high == ViewData::EmptyColumn) {
        low = high = value;
        return;
    }
    high = std::max(high, value);
    low = std::min(low, value);
}

}  // namespace

void ScanBlock(std::span<const std::int16_t> samples, std::int32_t channels, std::int32_t waveWidth,
               ViewData& data) {
    const auto width = static_cast<std::size_t>(channels);
    const std::size_t frames = samples.size() / width;
    data.Clear(waveWidth);
    for (std::size_t frame = 0; frame < frames; ++frame) {
        const std::size_t column = frame * static_cast<std::size_t>(waveWidth) / frames;
        for (std::size_t channel = 0; channel < width; ++channel)
            Add(samples[frame * width + channel], data.Low[channel][column],
                data.High[channel][column]);
    }
}

}  // namespace mavrin2::view
