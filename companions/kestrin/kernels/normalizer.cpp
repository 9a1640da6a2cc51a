#include "companions/kestrin/kernels/normalizer.h"

#include <algorithm>

#include "companions/kestrin/kernels/sample_conversion.h"

namespace mavrin2::kestrin {

SoundLevels MeasureLevels(std::span<const std::int16_t> sound, Progress& progress) {
    // So short that a 32-bit sum cannot overflow.
    constexpr std::size_t kPiece = 32768;
    SoundLevels levels;
    if (sound.empty()) return levels;
    levels.Lowest = levels.Highest = sound.front();
    std::int64_t sum = 0;
    for (std::size_t done = 0; done < sound.size();) {
        const auto piece = sound.subspan(done, std::min(kPiece, sound.size() - done));
        std::int16_t lowest = levels.Lowest;
        std::int16_t highest = levels.Highest;
        std::int32_t pieceSum = 0;
        for (const std::int16_t value : piece) {
            lowest = std::min(lowest, value);
            highest = std::max(highest, value);
            pieceSum += value;
        }
        levels.Lowest = lowest;
        levels.Highest = highest;
        sum += pieceSum;
        done += piece.size();
        progress.Report(FractionOf(done, sound.size()));
    }
    levels.Mean = static_cast<double>(sum) / static_cast<double>(sound.size());
    return levels;
}

Normalizer::Normalizer(const SoundLevels& levels, double peak, bool removeOffset) {
    const double offset = removeOffset ? levels.Mean : 0.0;
    const double largest = std::max(levels.Highest - offset, offset - levels.Lowest);
    // Less than half a step is not sound but the rounding of the mean.
    if (largest < 0.5) {
        offset_ = static_cast<float>(offset / kFullScale);
        return;
    }
    offset_ = static_cast<float>(offset / kFullScale);
    gain_ = static_cast<float>(peak * 32767.0 / largest);
}

void Normalizer::Process(std::span<float> block) {
    const float offset = offset_;
    const float gain = gain_;
    for (float& value : block)
        value = (value - offset) * gain;
}

}  // namespace mavrin2::kestrin
