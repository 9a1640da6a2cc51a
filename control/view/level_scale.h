#pragma once

#include <cstdint>
#include <string>

#include "control/view/geometry.h"

namespace mavrin2::view {

// What the level scale depends on.
struct LevelScaleInput {
    TypeViewConstants TypeView = TypeViewConstants::WAVEFORM;
    std::int16_t Type = 1;  // of the scale
    std::int32_t BitsPerSample = 16;
    std::int32_t Frequency = 8000;
    std::int32_t VerticalZoom = 100;  // percent
    std::int32_t WaveHeight = 0;
    std::int32_t VisibleChannels = 1;
};

// Where the level scale has its ticks: sample values, percent or hertz.
struct LevelScale {
    std::int32_t Maximum = 35000;  // the value at a lane's edge
    std::int32_t Step = 0;         // from label to label; 0 before the first computation
    std::int32_t Subdivisions = 1;

    void Compute(const LevelScaleInput& input, const platform::Font& font);
    // As for a document that is gone, at no zoom.
    void Reset(std::int16_t type, std::int32_t bitsPerSample);

    std::string Label(std::int32_t value, bool decibels) const;

private:
    void ChooseStep();
};

// The value that a full-scale sample has on the scale of that type.
std::int32_t FullScaleValue(std::int16_t type, std::int32_t bitsPerSample);

}  // namespace mavrin2::view
