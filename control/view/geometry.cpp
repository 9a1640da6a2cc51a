#include "control/view/geometry.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

namespace mavrin2::view {
namespace {

constexpr std::int32_t kEdge = 5;     // between the picture's edge and an area
constexpr std::int32_t kFarEdge = 2;  // on a side without a scale
constexpr std::int32_t kHidden = -2;  // a level scale that is not there
constexpr std::int32_t kLeastWidth = 180;
constexpr std::int32_t kLeastHeight = 60;
constexpr std::int32_t kSeparator = 3;  // rows between two lanes

// The widest label of the level scale.
std::string WidestLevelLabel(const LayoutInput& input) {
    if (input.TypeView == TypeViewConstants::SPECTRAL) return std::to_string(input.Frequency);
    switch (input.ScaleY.Type) {
        case 3:
            return "1000";
        case 2:
            return "norm";
        default:
            return "32768";
    }
}

std::int32_t LevelScaleWidth(const LayoutInput& input) {
    if (!input.ScaleY.Visible || !input.ScaleYFont) return 0;
    return input.ScaleYFont->Measure(WidestLevelLabel(input)).Width * 3 / 2 + 2;
}

std::int32_t TimeScaleHeight(const LayoutInput& input) {
    if (!input.ScaleX.Visible || !input.ScaleXFont) return 0;
    const std::int32_t height = input.ScaleXFont->Measure("111").Height;
    return height > 0 ? height * 3 / 2 + 2 : 0;
}

// `whole`, or the half of it that is edited: up to `upperEnd`, or from `lowerStart` on.
CursorRange EditedRows(const editor::ChannelSwitches& switches, std::int32_t channels,
                       const CursorRange& whole, std::int32_t upperEnd, std::int32_t lowerStart) {
    if (switches.VisibleCount < 1) return {};
    const int only = OnlyOperationChannel(switches, channels);
    if (only < 0) return whole;
    if (switches.VisibleCount < 2)
        return switches.Visible[static_cast<std::size_t>(only)] ? whole : CursorRange{};
    return only == 0 ? CursorRange{whole.Top, upperEnd} : CursorRange{lowerStart, whole.Bottom};
}

}  // namespace

void Geometry::Layout(const LayoutInput& input) {
    if (input.Width < 2 && input.Height < 2) return;
    Width = input.Width;
    Height = input.Height;
    OverviewBar = std::max(Width / 140, 4);
    LaneMargin = std::max(Width / 160, 3);
    LevelScale = LevelScaleWidth(input);
    TimeScale = TimeScaleHeight(input);
    if (Width - LevelScale - kEdge - kFarEdge < kLeastWidth) LevelScale = 0;
    if (Height - TimeScale - kEdge < kLeastHeight) TimeScale = 0;

    WaveArea.Top = OverviewBar + kEdge;
    WaveArea.Bottom = std::max(Height - TimeScale - kEdge, 0);
    const bool hidden = LevelScale == 0;
    if (input.ScaleY.Orientation == 2) {
        WaveArea.Left = LevelScale + kEdge + (hidden ? kHidden : 0);
        WaveArea.Right = Width - kFarEdge;
    } else {
        WaveArea.Left = kFarEdge;
        WaveArea.Right = std::max(Width - LevelScale - kEdge, 0) - (hidden ? kHidden : 0);
    }
    if (hidden) LevelScale = kHidden;
    WaveWidth = std::max(WaveArea.Width(), 0);
    WaveHeight = std::max(WaveArea.Height(), 0);
}

ViewThumb ComputeViewThumb(const Geometry& geometry, Bytes startView, Bytes endView, Bytes total) {
    const std::int32_t left = geometry.WaveArea.Left;
    if (total <= Bytes(0)) return {left, geometry.WaveWidth};
    const auto columns = [&](Bytes length) {
        return static_cast<std::int32_t>(geometry.WaveWidth * length.Count() / total.Count());
    };
    return {left + columns(startView), std::max(columns(endView - startView), 3)};
}

Lanes::Lanes(const Geometry& geometry, const editor::ChannelSwitches& switches,
             std::int32_t channels) {
    const std::int32_t top = geometry.WaveArea.Top;
    const std::int32_t bottom = geometry.WaveArea.Bottom;
    const std::int32_t margin = geometry.LaneMargin;
    const bool left = switches.Visible[0] != 0;
    if (channels < 2) {
        if (left) Add(0, geometry, top + margin, bottom - margin);
        return;
    }
    const bool right = switches.Visible[1] != 0;
    if (left && right) {
        const std::int32_t half = (geometry.WaveHeight - kSeparator) / 2;
        Add(0, geometry, top + margin, top + half);
        Add(1, geometry, top + half + kSeparator, bottom - margin);
    } else if (left || right) {
        Add(left ? 0 : 1, geometry, top, bottom);
    }
}

void Lanes::Add(std::size_t channel, const Geometry& geometry, std::int32_t top,
                std::int32_t bottom) {
    lanes_[count_++] = {{geometry.WaveArea.Left, top, geometry.WaveArea.Right, bottom}, channel};
}

int OnlyOperationChannel(const editor::ChannelSwitches& switches, std::int32_t channels) {
    if (channels < 2 || switches.OperationCount != 1) return -1;
    return switches.Operation[0] ? 0 : 1;
}

CursorRange CursorRangeOf(const Geometry& geometry, const editor::ChannelSwitches& switches,
                          std::int32_t channels) {
    const std::int32_t half = geometry.WaveHeight / 2;
    return EditedRows(switches, channels, {0, geometry.WaveHeight}, half, half + 5);
}

CursorRange MarkerRangeOf(const Geometry& geometry, const editor::ChannelSwitches& switches,
                          std::int32_t channels) {
    const std::int32_t half = geometry.WaveHeight / 2;
    const std::int32_t margin = geometry.LaneMargin;
    return EditedRows(switches, channels, {margin + 1, geometry.WaveHeight - (margin + 2)}, half,
                      half + 3);
}

void BusyWave::Fit(std::int32_t waveWidth) {
    if (waveWidth <= 0) return;
    heights_.resize(static_cast<std::size_t>(waveWidth) + 1);
    for (std::int32_t i = 0; i <= waveWidth; ++i)
        heights_[static_cast<std::size_t>(i)] =
            std::abs(static_cast<std::int32_t>(80 * std::sin(20 * 3.1415926 * i / waveWidth)));
}

}  // namespace mavrin2::view
