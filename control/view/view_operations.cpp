#include "control/view/view_operations.h"

#include "control/view/wave_image.h"

namespace mavrin2::view {

void ViewOperations::Paint(platform::DrawingTarget& target, const Rectangle& bounds,
                           const RowRange& rows) {
    constexpr std::int64_t kMostKept = std::int64_t{1} << 22;  // pixels
    const bool large = std::int64_t{bounds.Width()} * bounds.Height() > kMostKept;
    const RowRange kept = (large ? rows : RowRange{0, bounds.Height()}).Within(bounds.Height());
    if (bounds == picture_.Frame().Bounds()) {
        if (!picture_.Frame().Rows().Contains(kept)) picture_.KeepRows(kept);
        if (bounds == picture_.Frame().Bounds()) picture_.Show(target);
        return;
    }
    picture_.Resize(bounds, kept);
    picture_.Layout();
    range_.RecomputeView();
    // A host may have had it painted elsewhere in an event.
    if (bounds == picture_.Frame().Bounds()) picture_.Compose(target);
}

void ViewOperations::RebuildPens() {
    picture_.TakePens();
    picture_.RenderBackground();
    picture_.Redraw();
}

void ViewOperations::TakeSettings() {
    picture_.TakePens();
    picture_.TakeScales();
}

void ViewOperations::ApplyScaleSettings() {
    picture_.TakeScales();
    picture_.Layout();
    range_.RecomputeView();
    picture_.Redraw();
}

void ViewOperations::VisibleChannelsChanged() {
    picture_.Layout();
    if (picture_.Settings().TypeView == TypeViewConstants::SPECTRAL)
        picture_.BuildSpectralPictures();
    picture_.Redraw();
}

void ViewOperations::OperationChannelsChanged() {
    if (picture_.Settings().TypeView != TypeViewConstants::SPECTRAL) picture_.RenderBackground();
    picture_.Redraw();
}

std::int16_t ViewOperations::TypeBorder() const {
    return picture_.Settings().TypeBorder;
}

void ViewOperations::SetTypeBorder(std::int16_t type) {
    picture_.Settings().TypeBorder = type;
    picture_.RenderBackground();
    picture_.Redraw();
}

TypeViewConstants ViewOperations::TypeView() const {
    return picture_.Settings().TypeView;
}

void ViewOperations::SetTypeView(TypeViewConstants type) {
    if (!status_.Idle() || type == picture_.Settings().TypeView) return;
    picture_.Settings().TypeView = type;
    picture_.Layout();
    if (range_.RecomputeView()) picture_.Redraw();
}

void ViewOperations::SaveWaveImage(const std::filesystem::path& path) {
    status_.LastError = editor::ErrorConstants::NOERRORS;
    const Surface& frame = picture_.Frame().Frame();
    const RowRange all{0, frame.Height()};
    if (!frame.Empty() && !frame.Rows().Contains(all)) picture_.KeepRows(all);
    if (!frame.Empty()) WriteWaveImage(files_, path, frame);
}

}  // namespace mavrin2::view
