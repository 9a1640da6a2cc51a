#pragma once

#include <cstdint>
#include <string>

#include "control/view/geometry.h"

namespace mavrin2::view {

// What the time scale shows, in frames, or in seconds for type 2.
struct TimeRange {
    double Start = 0;
    double End = 10;
    std::int16_t Type = 1;
    bool LongDocument = false;  // seconds are written with minutes
};

// The range of a document, from its view in bytes.
TimeRange TimeRangeOf(Bytes startView, Bytes endView, Bytes total, std::int32_t channels,
                      std::int32_t frequency, std::int16_t type);

// Where the time scale has its ticks.
struct TimeScale {
    TimeRange Range;
    double FirstLabel = 0;  // at or before the view's start
    double Step = 0;        // from label to label; 0 before the first computation
    std::int32_t Subdivisions = 10;

    // Chooses the steps so that labels have room beside each other.
    void Compute(const TimeRange& range, const platform::Font& font, std::int32_t waveWidth);

    // Decimals in the labels.
    int Decimals() const;
    std::string Label(double value) const;
};

// Minutes, seconds and a fraction of so many digits, or for a short document the seconds alone.
std::string FormatTime(double seconds, int decimals, bool longDocument);

}  // namespace mavrin2::view
