#include "control/view/painters/play_cursor_painter.h"

#include "control/view/lanes.h"
#include "control/view/painters/cursor_painter.h"

namespace mavrin2::view {

void PlayCursorPainter::Draw(platform::DrawingTarget& target, const Rectangle& bounds) const {
    if (!scene_.Playing()) return;
    const Rectangle& wave = scene_.Area.WaveArea;
    const CursorRange range = CursorRangeOf(scene_.Area, scene_.Channels, scene_.Format.Channels);
    const std::int32_t x = bounds.Left + wave.Left + scene_.PlayColumn;
    const std::int32_t top = bounds.Top + wave.Top;
    ForEachDash(top + range.Top, top + range.Bottom, kCursorDash, kCursorPeriod,
                [&](std::int32_t from, std::int32_t to) {
                    target.DrawVertical(x, from, to, ToPixel(scene_.Colors.PlayCursor).Value);
                });
}

}  // namespace mavrin2::view
