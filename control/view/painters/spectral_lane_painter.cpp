#include "control/view/painters/spectral_lane_painter.h"

namespace mavrin2::view {

void SpectralLanePainter::Draw(Surface& surface) const {
    if (!scene_.HasSound()) return;
    using Kind = SpectralPictures::Kind;
    const Rectangle& area = lane_.Area;
    const bool active = scene_.Format.Channels < 2 || scene_.Channels.Operation[lane_.Channel] != 0;
    const auto copy = [&](Kind kind, std::int32_t from, std::int32_t to) {
        surface.CopyFrom(pictures_.Of(lane_.Channel, kind), {from, 0, to, area.Height()},
                         area.Left + from, area.Top);
    };
    copy(active ? Kind::Normal : Kind::Inactive, 0, area.Width());
    if (active && scene_.SelStartColumn != scene_.SelEndColumn)
        copy(Kind::Selected, scene_.SelStartColumn, scene_.SelEndColumn);
}

}  // namespace mavrin2::view
