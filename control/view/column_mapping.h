#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "control/signal/quantity.h"

namespace mavrin2::view {

using signal::Bytes;

// Between positions in the document and columns of the wave area. The two ways are not exactly
// inverse: ColumnToByte spreads the columns over one more frame.
struct ColumnMapping {
    Bytes StartView;
    Bytes EndView;
    std::int32_t WaveWidth = 0;
    Bytes FrameSize;

    // 0 … WaveWidth.
    std::int32_t ByteToColumn(Bytes position) const {
        if (StartView == EndView) return 0;
        const double column = static_cast<double>((position - StartView).Count()) /
                                  static_cast<double>((EndView - StartView).Count()) * WaveWidth +
                              0.5;
        return static_cast<std::int32_t>(std::clamp(column, 0.0, static_cast<double>(WaveWidth)));
    }

    // The beginning of a frame.
    Bytes ColumnToByte(std::int32_t column) const {
        if (column == WaveWidth) return EndView;
        if (column == 0) return StartView;
        const double length = static_cast<double>((EndView - StartView + FrameSize).Count());
        const double place = static_cast<double>(StartView.Count()) +
                             static_cast<double>(column) / WaveWidth * length;
        const auto position = static_cast<std::int64_t>(std::floor(place + 0.5));
        return Bytes(position / FrameSize.Count() * FrameSize.Count());
    }
};

}  // namespace mavrin2::view
