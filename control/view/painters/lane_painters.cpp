#include "control/view/painters/lane_painters.h"

#include <algorithm>

namespace mavrin2::view {

void LanePainter::DrawBoundaries(Surface& surface) const {
    const std::int32_t full = FullScaleValue(scene_.ScaleY.Type, scene_.Format.BitsPerSample);
    const std::int32_t half = (lane_.Bottom - 2 - (lane_.Top + 2)) / 2;
    const std::int32_t room = lane_.Height() / 2 - 1;
    const auto distance =
        static_cast<std::int32_t>(std::int64_t{full} * half / std::max(scene_.Level.Maximum, 1));
    if (distance >= room) return;
    const Pixel color = ToPixel(scene_.Colors.Boundary);
    const std::int32_t middle = lane_.Top + 2 + room;
    surface.Horizontal(lane_.Left, lane_.Right, middle - distance, color);
    surface.Horizontal(lane_.Left, lane_.Right, middle + distance, color);
}

void LanePainter::DrawBusyWave(Surface& surface) const {
    const std::int32_t half = lane_.Height() / 2;
    const std::int32_t middle = lane_.Top + half;
    surface.Horizontal(lane_.Left, lane_.Right, middle, scene_.Pen.Center);
    const std::int32_t last = scene_.Progress * lane_.Width() / 100;
    for (std::int32_t column = 0; column <= last; ++column) {
        const std::int32_t height = scene_.Busy.At(column) * half / 100;
        surface.Vertical(lane_.Left + column, middle + height, middle - height + 1,
                         scene_.Pen.Digital);
    }
}

void SpectralLanePainter::Draw(Surface& surface) const {
    if (!scene_.HasSound()) return;
    using Kind = SpectralPictures::Kind;
    const Rectangle& area = lane_.Area;
    const bool active = scene_.Format.Channels < 2 || scene_.Channels.Operation[lane_.Channel] != 0;
    pictures_.Draw(surface, lane_.Channel, active ? Kind::Normal : Kind::Inactive, area, 0,
                   area.Width());
    if (active && scene_.Selection.Start != scene_.Selection.End)
        pictures_.Draw(surface, lane_.Channel, Kind::Selected, area, scene_.Selection.Start,
                       scene_.Selection.End);
}

}  // namespace mavrin2::view
