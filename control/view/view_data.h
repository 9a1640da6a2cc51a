#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace mavrin2::view {

// The visible range, condensed to one entry for each column of the wave area. One array a channel,
// left or only one first.
struct ViewData {
    static constexpr std::int32_t LeastColumns = 3000;
    // No sample has reached the column. No sample has this value.
    static constexpr std::int32_t EmptyColumn = 33333;
    using Entries = std::vector<std::int32_t>;

    // Columns that there is room for in a wave area of that width: the last sample may round to the
    // column after the last one.
    static std::int32_t ColumnsFor(std::int32_t waveWidth) {
        return std::max(waveWidth + 1, LeastColumns);
    }

    std::array<Entries, 2> Low;
    std::array<Entries, 2> High;
    // The curve through single samples; 0 in columns without it.
    std::array<Entries, 2> CloseUp;
    // 0: the columns show lowest and highest values. 1 … 4: they show the curve, from 2 on with
    // points for the samples, the larger the higher.
    std::int16_t CloseUpLevel = 0;

    ViewData() { Clear(0); }

    std::int32_t Columns() const { return static_cast<std::int32_t>(Low[0].size()); }

    // For a wave area of that width; the curve stays as it is.
    void ClearPeaks(std::int32_t waveWidth) {
        const auto columns = static_cast<std::size_t>(ColumnsFor(waveWidth));
        for (std::size_t channel = 0; channel < 2; ++channel) {
            Low[channel].assign(columns, EmptyColumn);
            High[channel].assign(columns, EmptyColumn);
            CloseUp[channel].resize(columns);
        }
    }
    void Clear(std::int32_t waveWidth) {
        ClearPeaks(waveWidth);
        for (Entries& channel : CloseUp)
            std::ranges::fill(channel, 0);
    }
};

}  // namespace mavrin2::view
