#include "control/view/painters/frame_painters.h"

#include "control/view/geometry.h"

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
    const Frame frame = FrameOf(scene_.Settings.TypeBorder, scene_.Pen);
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

void OverviewBarPainter::Draw(Surface& surface) const {
    DrawBar(surface);
    if (scene_.Channels.VisibleCount > 1) DrawSeparators(surface);
}

void OverviewBarPainter::DrawBar(Surface& surface) const {
    const Rectangle& wave = scene_.Area.WaveArea;
    const std::int32_t bar = scene_.Area.OverviewBar;
    surface.Horizontal(wave.Left, wave.Right + 1, 1, kBlack);
    surface.Horizontal(wave.Left, wave.Right + 1, bar + 3, kBlack);
    surface.Fill({scene_.Thumb.Left, 2, scene_.Thumb.Left + scene_.Thumb.Width + 1, bar + 3},
                 scene_.Pen.Digital);
    surface.Vertical(wave.Left, 1, bar + 3, kBlack);
    surface.Vertical(wave.Right, 1, bar + 3, kBlack);
}

void OverviewBarPainter::DrawSeparators(Surface& surface) const {
    const Geometry& area = scene_.Area;
    const Rectangle& wave = area.WaveArea;
    const std::int32_t middle = wave.Top + area.WaveHeight / 2;
    const bool scale = scene_.ScaleY.Visible != 0 && area.LevelScale > 0;
    for (const std::int32_t row : {-1, 0, 1}) {
        const Pixel color = row == 0 ? scene_.Pen.Highlight : scene_.Pen.Shadow;
        surface.Horizontal(wave.Left, wave.Right + 1, middle + row, color);
        if (!scale) continue;
        if (scene_.LevelScaleLeft())
            surface.Horizontal(wave.Left - 2, wave.Left - 4 - area.LevelScale, middle + row, color);
        else
            surface.Horizontal(wave.Left, wave.Right + area.LevelScale + 3, middle + row, color);
    }
}

}  // namespace mavrin2::view
