#include "control/view/painters/border_painter.h"

namespace mavrin2::view {
namespace {

// The edges in the order in which they are drawn over each other.
struct Frame {
    Pixel TopOuter, TopInner, LeftOuter, LeftInner;
    Pixel BottomInner, BottomOuter, RightOuter, RightInner;
};

Frame FrameOf(std::int16_t type, const Pens& pen) {
    const Pixel h = pen.Highlight;
    const Pixel s = pen.Shadow;
    const Pixel f = pen.Face;
    const Pixel k = kBlack;
    switch (type) {
        case 0:
            return {s, f, s, f, s, h, h, s};
        case 1:
            return {h, s, h, s, h, s, s, h};
        case 2:
            return {h, f, h, f, s, k, k, s};
        case 3:
            return {s, s, s, s, f, h, h, f};
        default:
            return {f, f, f, f, f, f, f, f};
    }
}

}  // namespace

void BorderPainter::Draw(Surface& surface) const {
    DrawFrame(surface);
    DrawAreaEdges(surface);
}

void BorderPainter::DrawFrame(Surface& surface) const {
    const Frame frame = FrameOf(scene_.TypeBorder, scene_.Pen);
    const std::int32_t right = surface.Width();
    const std::int32_t bottom = surface.Height();
    surface.Horizontal(0, right, 0, frame.TopOuter);
    surface.Horizontal(0, right, 1, frame.TopInner);
    surface.Vertical(0, 0, bottom, frame.LeftOuter);
    surface.Vertical(1, 1, bottom - 1, frame.LeftInner);
    surface.Horizontal(1, right - 1, bottom - 2, frame.BottomInner);
    surface.Horizontal(0, right, bottom - 1, frame.BottomOuter);
    surface.Vertical(right - 1, 1, bottom, frame.RightOuter);
    surface.Vertical(right - 2, 1, bottom - 1, frame.RightInner);
}

void BorderPainter::DrawAreaEdges(Surface& surface) const {
    const Geometry& area = scene_.Area;
    const Rectangle& wave = area.WaveArea;
    const Pixel highlight = scene_.Pen.Highlight;
    const Pixel shadow = scene_.Pen.Shadow;
    if (scene_.ScaleX.Visible && area.TimeScale > 0) {
        surface.Horizontal(wave.Left, wave.Right, wave.Bottom + 1, shadow);
        surface.Horizontal(wave.Left, wave.Right + 1, wave.Bottom + 2, highlight);
    }
    const bool left = scene_.LevelScaleLeft();
    if (scene_.ScaleY.Visible && area.LevelScale > 0) {
        surface.Vertical(left ? wave.Left : wave.Right, 2, wave.Bottom + 1, shadow);
        surface.Vertical(left ? wave.Left - 1 : wave.Right + 1, 2, wave.Bottom + 3, highlight);
    }
    surface.Vertical(left ? wave.Left - 2 : wave.Right + 2, 2, wave.Bottom + 3, shadow);
    surface.Horizontal(wave.Left, wave.Right + 1, area.OverviewBar + 4, highlight);
}

}  // namespace mavrin2::view
