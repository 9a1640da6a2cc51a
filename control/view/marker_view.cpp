#include "control/view/marker_view.h"

#include <utility>

namespace mavrin2::view {

void MarkerView::SetBarEnabled(std::int16_t value) {
    if (std::exchange(settings_.BarEnabled, value) != value) picture_.Redraw();
}

void MarkerView::SetBackgroundEnabled(std::int16_t value) {
    if (std::exchange(settings_.BackgroundEnabled, value) == value) return;
    if (picture_.Settings().TypeView != TypeViewConstants::SPECTRAL) picture_.RenderBackground();
    picture_.Redraw();
}

void MarkerView::SetBitmapType(std::int16_t value) {
    if (std::exchange(settings_.BitmapType, value) == value) return;
    bar_.RebuildDisplayList();
    picture_.Redraw();
}

}  // namespace mavrin2::view
