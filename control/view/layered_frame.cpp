#include "control/view/layered_frame.h"

namespace mavrin2::view {

void LayeredFrame::Resize(const Rectangle& bounds, const RowRange& rows) {
    bounds_ = bounds;
    background_ = Surface();  // the old ones first, so that there are never four
    frame_ = Surface();
    background_ = Surface(bounds.Width(), bounds.Height(), rows);
    frame_ = Surface(bounds.Width(), bounds.Height(), rows);
    begun_ = false;
}

Surface& LayeredFrame::Begin() {
    frame_.CopyFrom(background_);
    begun_ = true;
    return frame_;
}

bool LayeredFrame::Show(platform::DrawingTarget& target) {
    if (!begun_ || frame_.Empty()) return false;
    target.Blit(bounds_.Left, bounds_.Top + frame_.Rows().First, frame_.AsPixels());
    return true;
}

}  // namespace mavrin2::view
