#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "control/editor/channel_switches.h"
#include "control/view/geometry.h"
#include "control/view/spectrum.h"
#include "control/view/style.h"
#include "control/view/surface.h"

namespace mavrin2::view {

// The spectrum of each channel as a picture of a lane's size. A point is kept as its shade, of
// which the colours are those of what is not selected, of what is, and of a channel that is not
// edited.
class SpectralPictures {
public:
    enum class Kind : std::size_t { Normal, Selected, Inactive };

    void Build(const SpectrumTable& table, const Geometry& geometry,
               const editor::ChannelSwitches& switches, std::int32_t channels,
               const ColorSettings& colors);
    // Nothing to show, as after a change of size.
    void Clear();

    // Draws the columns of a channel's picture from `from` to before `to`, with the picture's upper
    // left corner at the area's, and nothing below the area.
    void Draw(Surface& surface, std::size_t channel, Kind kind, const Rectangle& area,
              std::int32_t from, std::int32_t to) const;

private:
    // Room for each value of a point.
    using Palette = std::array<std::uint32_t, 256>;

    struct Shades {
        std::int32_t Width = 0;
        std::int32_t Height = 0;
        std::vector<std::uint8_t> Points;

        std::uint8_t* Row(std::int32_t y) {
            return Points.data() + static_cast<std::ptrdiff_t>(y) * Width;
        }
        const std::uint8_t* Row(std::int32_t y) const {
            return Points.data() + static_cast<std::ptrdiff_t>(y) * Width;
        }
    };

    static std::array<Palette, 3> PalettesOf(const ColorSettings& colors);

    std::array<Palette, 3> palettes_{};
    std::array<Shades, 2> channels_;
};

}  // namespace mavrin2::view
