#pragma once

#include "control/view/surface.h"
#include "platform/drawing_target.h"

namespace mavrin2::view {

// The picture in two layers of the control's size, so that little is drawn again: the background,
// which changes with layout, colours, selection, range markers and level scale only, and the frame
// that is composed over a copy of it. Both are empty before the first Resize.
class LayeredFrame {
public:
    // Black layers for a new place, or a band of them.
    void Resize(const Rectangle& bounds, const RowRange& rows);
    const Rectangle& Bounds() const { return bounds_; }
    // The rows of the bounds that there are.
    RowRange Rows() const { return frame_.Rows(); }
    // No room to draw in.
    bool TooSmall() const { return bounds_.Width() < 2 && bounds_.Height() < 2; }

    Surface& Background() { return background_; }
    // Whether the background has to be rendered before the next frame.
    bool BackgroundDue = false;

    // Begins a new frame, as a copy of the background.
    Surface& Begin();
    const Surface& Frame() const { return frame_; }

    // Copies the frame to its bounds. False where none was begun since the last Resize.
    bool Show(platform::DrawingTarget& target);

private:
    Rectangle bounds_;
    Surface background_;
    Surface frame_;
    bool begun_ = false;
};

}  // namespace mavrin2::view
