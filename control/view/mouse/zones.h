#pragma once

#include <cstdint>

#include "control/view/geometry.h"

namespace mavrin2::view {

// A place in the picture, from its upper left corner; outside it while the mouse is captured.
struct Point {
    std::int32_t X = 0;
    std::int32_t Y = 0;
};

// What the zones depend on besides the geometry.
struct ZoneInput {
    ViewThumb Thumb;
    bool ScrollsByThumb = false;  // zoomed in, and something of the document is out of view
    bool ScrollsByTime = false;   // zoomed in, with the time scale shown
    bool TimeScaleShown = false;
    bool LevelScaleShown = false;
    bool LevelScaleLeft = false;
};

// Which part of the picture a point is in. Limits belong to the zones, except in the lanes.
class MouseZones {
public:
    MouseZones(const Geometry& area, const ZoneInput& input) : area_(area), input_(input) {}

    bool InColumns(Point at) const {
        return at.X >= area_.WaveArea.Left && at.X <= area_.WaveArea.Right;
    }
    bool InHeight(Point at) const { return at.Y >= 0 && at.Y <= area_.Height; }
    // Between the bands along the edges of the wave area.
    bool InLanes(Point at) const {
        return at.Y > area_.WaveArea.Top + area_.LaneMargin &&
               at.Y < area_.WaveArea.Bottom - area_.LaneMargin;
    }
    // The bands above and below the lanes, where the markers have their flags.
    bool InEdges(Point at) const;
    bool InThumb(Point at) const;
    bool InTimeScale(Point at) const;

    // Where a press of the right button is a click on a scale.
    bool ClicksTimeScale(Point at) const;
    bool ClicksLevelScale(Point at) const;

    // Parts of the wave area that choose a channel; where none does, −1. Channels are counted from
    // 0.
    int EighthOf(Point at) const;
    int HalfOf(Point at) const;

private:
    const Geometry& area_;
    ZoneInput input_;
};

}  // namespace mavrin2::view
