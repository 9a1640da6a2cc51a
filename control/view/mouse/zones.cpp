#include "control/view/mouse/zones.h"

namespace mavrin2::view {
namespace {

// What still counts as on the thumb, or on a scale.
constexpr std::int32_t kThumbReach = 5;
constexpr std::int32_t kScaleReach = 3;

}  // namespace

bool MouseZones::InEdges(Point at) const {
    const std::int32_t top = area_.WaveArea.Top;
    const std::int32_t bottom = area_.WaveArea.Bottom;
    return (at.Y >= top && at.Y <= top + area_.LaneMargin) ||
           (at.Y >= bottom - area_.LaneMargin && at.Y <= bottom);
}

bool MouseZones::InThumb(Point at) const {
    return input_.ScrollsByThumb && at.Y >= 0 && at.Y <= area_.OverviewBar + kThumbReach &&
           at.X >= input_.Thumb.Left - kThumbReach &&
           at.X <= input_.Thumb.Left + input_.Thumb.Width + kThumbReach;
}

bool MouseZones::InTimeScale(Point at) const {
    return input_.ScrollsByTime && InColumns(at) && at.Y >= area_.Height - area_.TimeScale &&
           at.Y <= area_.Height;
}

bool MouseZones::ClicksTimeScale(Point at) const {
    return input_.TimeScaleShown && InColumns(at) &&
           at.Y >= area_.Height - area_.TimeScale - kScaleReach && at.Y <= area_.Height;
}

bool MouseZones::ClicksLevelScale(Point at) const {
    if (!input_.LevelScaleShown || at.Y < 0 || at.Y > area_.Height - area_.TimeScale) return false;
    if (input_.LevelScaleLeft) return at.X >= 0 && at.X <= kScaleReach + area_.LevelScale;
    return at.X >= area_.Width - area_.LevelScale - kScaleReach && at.X <= area_.Width;
}

int MouseZones::EighthOf(Point at) const {
    const std::int32_t bottom = area_.WaveArea.Bottom;
    if (at.Y > area_.WaveArea.Top && at.Y < bottom / 8) return 0;
    return at.Y > 7 * bottom / 8 && at.Y < bottom ? 1 : -1;
}

int MouseZones::HalfOf(Point at) const {
    const std::int32_t bottom = area_.WaveArea.Bottom;
    if (at.Y > area_.WaveArea.Top && at.Y < bottom / 2) return 0;
    return at.Y > bottom / 2 && at.Y < bottom ? 1 : -1;
}

}  // namespace mavrin2::view
