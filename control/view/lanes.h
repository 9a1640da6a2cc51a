#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "control/editor/channel_switches.h"
#include "control/view/geometry.h"

namespace mavrin2::view {

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

}  // namespace mavrin2::view
