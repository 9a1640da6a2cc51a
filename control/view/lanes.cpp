#include "control/view/lanes.h"

namespace mavrin2::view {
namespace {

constexpr std::int32_t kSeparator = 3;  // rows between two lanes

}  // namespace

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
    const CursorRange whole{0, geometry.WaveHeight};
    if (switches.VisibleCount < 1) return {};
    const int only = OnlyOperationChannel(switches, channels);
    if (only < 0) return whole;
    if (switches.VisibleCount < 2)
        return switches.Visible[static_cast<std::size_t>(only)] ? whole : CursorRange{};
    const std::int32_t half = geometry.WaveHeight / 2;
    return only == 0 ? CursorRange{0, half} : CursorRange{half + 5, geometry.WaveHeight};
}

}  // namespace mavrin2::view
