#pragma once

#include <array>
#include <cstdint>

#include "control/editor/channel_switches.h"
#include "control/view/geometry.h"
#include "control/view/spectrum.h"
#include "control/view/style.h"
#include "control/view/surface.h"

namespace mavrin2::view {

// The spectrum of each channel as a picture of a lane's size, in the colours of what is not
// selected, of what is, and of a channel that is not edited.
class SpectralPictures {
public:
    enum class Kind : std::size_t { Normal, Selected, Inactive };

    void Build(const SpectrumTable& table, const Geometry& geometry,
               const editor::ChannelSwitches& switches, std::int32_t channels,
               const ColorSettings& colors);
    // Nothing to show, as after a change of size.
    void Clear();

    const Surface& Of(std::size_t channel, Kind kind) const {
        return pictures_[channel][static_cast<std::size_t>(kind)];
    }

private:
    std::array<std::array<Surface, 3>, 2> pictures_;
};

}  // namespace mavrin2::view
