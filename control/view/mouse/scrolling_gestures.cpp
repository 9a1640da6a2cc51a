#include "control/view/mouse/scrolling_gestures.h"

#include <cmath>

namespace mavrin2::view {

Scrolling::Scrolling(MouseContext& context, With with, Point at)
    : Gesture(with == With::Thumb ? editor::DragMode::Thumb : editor::DragMode::TimeScale),
      context_(context),
      with_(with),
      anchor_(at.X) {}

void Scrolling::Move(Point at, const MouseZones& /*zones*/) {
    const editor::DocumentState& document = *context_.Document.History.Current();
    const editor::ZoomLevel level = document.Level();
    const std::int64_t length = (level.EndView - level.StartView).Count();
    const std::int64_t total = document.TotalBytes.Count();
    const std::int64_t frame = context_.Document.Format.FrameSize().Count();

    const int width = context_.Area().WaveWidth;
    if (width <= 0) return;  // the window has shrunk meanwhile
    const double moved = static_cast<double>(at.X - anchor_) / width;
    const std::int64_t span = with_ == With::Thumb ? total : length;
    auto delta = static_cast<std::int64_t>(std::trunc(moved * static_cast<double>(span) + 0.5));
    delta -= delta % frame;
    if (delta == 0) return;

    std::int64_t start = level.StartView.Count() + (with_ == With::Thumb ? delta : -delta);
    if (start > total - length) start = total - frame - length;
    start = std::max<std::int64_t>(start, 0);
    anchor_ = at.X;
    context_.Range.RecomputeView(Bytes(start), Bytes(start + length));
    if (Over() || !context_.Document.History.Current()) return;
    // It ends what the mouse drags, but for this.
    context_.Drag.Mode = Mode();
    context_.Picture.Redraw();
}

}  // namespace mavrin2::view
