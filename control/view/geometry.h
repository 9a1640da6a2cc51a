#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "control/editor/channel_switches.h"
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

// Columns of the visible range in the overview bar.
struct ViewThumb {
    std::int32_t Left = 0;  // in the picture
    std::int32_t Width = 0;
};

// `total` 0 or less: the whole bar.
ViewThumb ComputeViewThumb(const Geometry& geometry, Bytes startView, Bytes endView, Bytes total);

// Between positions in the document and columns of the overview bar.
class BarMapping {
public:
    // Everything is at the bar's start when `total` is 0 or less.
    BarMapping(const Geometry& geometry, Bytes total)
        : left_(geometry.WaveArea.Left),
          scale_(total > Bytes(0) ? geometry.WaveWidth / static_cast<double>(total.Count()) : 0) {}

    // In the picture; outside of it, too, for positions outside the document.
    std::int32_t ColumnOf(Bytes position) const {
        constexpr double kFar = 1e9;
        const double column = static_cast<double>(position.Count()) * scale_;
        return left_ + static_cast<std::int32_t>(std::clamp(column, -kFar, kFar));
    }

private:
    std::int32_t left_;
    double scale_;
};

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

// The place of one channel's sound.
struct Lane {
    Rectangle Area;
    std::size_t Channel = 0;  // from 0
};

// The lanes of the visible channels, from top to bottom.
class Lanes {
public:
    Lanes(const Geometry& geometry, const editor::ChannelSwitches& switches, std::int32_t channels);

    std::size_t Count() const { return count_; }
    const Lane* begin() const { return lanes_.data(); }
    const Lane* end() const { return lanes_.data() + count_; }

private:
    void Add(std::size_t channel, const Geometry& geometry, std::int32_t top, std::int32_t bottom);

    std::array<Lane, 2> lanes_;
    std::size_t count_ = 0;
};

// In a document of two channels of which one is edited: that one, else −1.
int OnlyOperationChannel(const editor::ChannelSwitches& switches, std::int32_t channels);

// The rows that a vertical cursor line crosses, from the wave area's top.
struct CursorRange {
    std::int32_t Top = 0;
    std::int32_t Bottom = 0;
};
CursorRange CursorRangeOf(const Geometry& geometry, const editor::ChannelSwitches& switches,
                          std::int32_t channels);
// Those that the line of a marker crosses.
CursorRange MarkerRangeOf(const Geometry& geometry, const editor::ChannelSwitches& switches,
                          std::int32_t channels);

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
