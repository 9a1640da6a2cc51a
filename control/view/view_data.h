#pragma once

#include <array>
#include <cstdint>

#include "control/view/geometry.h"

namespace mavrin2::view {

// The visible range, condensed to one entry for each column of the wave area. One array a channel,
// left or only one first.
struct ViewData {
    static constexpr std::int32_t Columns = Geometry::MostColumns;
    // No sample has reached the column. No sample has this value.
    static constexpr std::int32_t EmptyColumn = 33333;
    using Entries = std::array<std::int32_t, Columns>;

    std::array<Entries, 2> Low = Filled(EmptyColumn);
    std::array<Entries, 2> High = Filled(EmptyColumn);
    // The curve through single samples; 0 where there is none.
    std::array<Entries, 2> CloseUp = Filled(0);
    // 0: the columns show lowest and highest values. 1 … 4: they show the curve, from 2 on with
    // points for the samples, the larger the higher.
    std::int16_t CloseUpLevel = 0;

    void ClearPeaks() {
        Low = Filled(EmptyColumn);
        High = Filled(EmptyColumn);
    }
    void Clear() {
        ClearPeaks();
        CloseUp = Filled(0);
    }

private:
    static std::array<Entries, 2> Filled(std::int32_t value) {
        std::array<Entries, 2> entries;
        for (Entries& channel : entries)
            channel.fill(value);
        return entries;
    }
};

// How close a view of that many bytes in each column and channel is.
std::int16_t CloseUpLevelOf(double bytesPerColumn, std::int32_t frequency);

}  // namespace mavrin2::view
