#include "companions/kestrin/kernels/level_curve.h"

#include <algorithm>

#include "companions/kestrin/kernels/sample_conversion.h"

namespace mavrin2::kestrin {

LevelCurve::LevelCurve(std::span<const std::int16_t> sound, std::size_t window, std::size_t step,
                       Progress& progress)
    : step_(step) {
    // Exact: a sum of squares of 16-bit numbers fits for 2³³ samples.
    std::vector<std::uint64_t> sums{0};
    sums.reserve(sound.size() / step + 2);
    for (std::size_t done = 0; done < sound.size(); done += step) {
        const auto piece = sound.subspan(done, std::min(step, sound.size() - done));
        std::uint64_t sum = 0;
        for (const std::int16_t value : piece)
            sum += static_cast<std::uint32_t>(std::int32_t{value} * value);
        sums.push_back(sums.back() + sum);
        if (sums.size() % 1024 == 0) progress.Report(FractionOf(done, sound.size()));
    }

    const std::size_t steps = sums.size() - 1;
    const std::size_t half = window / step / 2;
    powers_.reserve(steps);
    for (std::size_t i = 0; i < steps; ++i) {
        const std::size_t from = i > half ? i - half : 0;
        const std::size_t to = std::min(steps, i + half + 1);
        const std::size_t samples = std::min(to * step, sound.size()) - from * step;
        powers_.push_back(static_cast<float>(
            static_cast<double>(sums[to] - sums[from]) /
            (static_cast<double>(samples) * static_cast<double>(kFullScale) * kFullScale)));
    }
    progress.Report(1);
}

}  // namespace mavrin2::kestrin
