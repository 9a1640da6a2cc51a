#pragma once

#include <cstdint>
#include <vector>

#include "control/interfaces/enumerations.h"
#include "control/signal/quantity.h"
#include "control/view/rectangle.h"
#include "control/view/style.h"
#include "platform/text.h"

namespace mavrin2::view {

using interfaces::TypeViewConstants;
using signal::Bytes;

// What the places of things depend on.
struct LayoutInput {
    std::int32_t Width = 0;
    std::int32_t Height = 0;
    TypeViewConstants TypeView = TypeViewConstants::WAVEFORM;
    ScaleSettings ScaleX;
    ScaleSettings ScaleY;
    const platform::Font* ScaleXFont = nullptr;
    const platform::Font* ScaleYFont = nullptr;
    std::int32_t Frequency = 8000;
};

// Where things are in the picture, in pixels from its upper left corner. From top to bottom: the
// overview bar, the lanes of the channels in the wave area, the time scale; the level scale stands
// beside the wave area.
struct Geometry {
    std::int32_t Width = 0;
    std::int32_t Height = 0;
    Rectangle WaveArea;
    std::int32_t WaveWidth = 0;
    std::int32_t WaveHeight = 0;
    std::int32_t OverviewBar = 0;  // height
    std::int32_t LaneMargin = 0;   // above and below the waveform
    std::int32_t TimeScale = 0;    // height, 0 when hidden
    std::int32_t LevelScale = 0;   // width, −2 when hidden

    // Nothing changes where there is no room at all.
    void Layout(const LayoutInput& input);
};

// Where the visible range stands in the overview bar.
struct ViewThumb {
    std::int32_t Left = 0;  // in the picture
    std::int32_t Width = 0;
};

// `total` 0 or less: the whole bar.
ViewThumb ComputeViewThumb(const Geometry& geometry, Bytes startView, Bytes endView, Bytes total);

// Ten half waves across the wave area, which show that a file is being loaded: a height of 0 … 80
// for each column.
class BusyWave {
public:
    void Fit(std::int32_t waveWidth);
    // 0 past the wave area's last column.
    std::int32_t At(std::int32_t column) const {
        const auto index = static_cast<std::size_t>(column);
        return index < heights_.size() ? heights_[index] : 0;
    }

private:
    std::vector<std::int32_t> heights_;
};

}  // namespace mavrin2::view
