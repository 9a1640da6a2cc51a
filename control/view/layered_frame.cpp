#include "control/view/layered_frame.h"

namespace mavrin2::view {

void LayeredFrame::Resize(const Rectangle& bounds) {
    bounds_ = bounds;
    background_ = Surface(bounds.Width(), bounds.Height());
    frame_ = Surface(bounds.Width(), bounds.Height());
    begun_ = false;
}

Surface& LayeredFrame::Begin() {
    frame_.CopyFrom(background_);
    begun_ = true;
    return frame_;
}

bool LayeredFrame::Show(platform::DrawingTarget& target) {
    if (!begun_ || frame_.Empty()) return false;
    target.Blit(bounds_.Left, bounds_.Top, frame_.AsPixels());
    return true;
}

}  // namespace mavrin2::view
