#include "control/view/document_picture.h"

namespace mavrin2::view {

DocumentPicture::DocumentPicture(const ViewServices& services)
    : services_(services),
      layout_(services_),
      sound_(services_, layout_.Area()),
      picture_(services_, layout_, sound_) {}

void DocumentPicture::Resize(const Rectangle& bounds, const RowRange& rows) {
    picture_.Resize(bounds, rows);
    sound_.ClearSpectralPictures();
}

void DocumentPicture::KeepRows(const RowRange& rows) {
    picture_.Resize(picture_.Frame().Bounds(), rows);
    picture_.RenderBackground();
    picture_.Compose();
}

void DocumentPicture::Layout() {
    if (picture_.Frame().TooSmall()) return;
    layout_.Layout(picture_.Frame().Bounds());
    RenderBackground();
}

void DocumentPicture::SetVerticalZoom(std::int32_t percent) {
    services_.Settings.VerticalZoom = percent;
    layout_.ComputeLevelScale();
}

void DocumentPicture::FormatChanged() {
    layout_.ComputeTimeScale();
    layout_.ComputeLevelScale();
    RenderBackground();
}

DocumentPicture::Columns DocumentPicture::RecomputeColumns() {
    if (layout_.Area().WaveWidth < 1) return Columns::Nothing;
    services_.Drag.Mode = editor::DragMode::None;
    layout_.ComputeTimeScale();
    // A host's scale object may have closed the document or changed the window.
    if (!services_.Document.History.Current() || layout_.Area().WaveWidth < 1)
        return Columns::Nothing;
    return sound_.Recompute(services_.Settings.TypeView) ? Columns::Recomputed : Columns::Failed;
}

ColumnMapping DocumentPicture::MappingOf(const editor::DocumentState& document) const {
    const editor::ZoomLevel level = document.Level();
    return {level.StartView, level.EndView, layout_.Area().WaveWidth,
            services_.Document.Format.FrameSize()};
}

void DocumentPicture::MovePlayCursor(Bytes position) {
    const editor::DocumentState* document = services_.Document.History.Current();
    if (!document) return;
    services_.Play.PlayColumn = MappingOf(*document).ByteToColumn(position);
    picture_.ShowAgain();
}

void DocumentPicture::UpdateSelectionColumns() {
    const editor::DocumentState* document = services_.Document.History.Current();
    if (!document) return;
    const editor::ZoomLevel level = document->Level();
    const std::int32_t width = layout_.Area().WaveWidth;
    const ColumnMapping mapping = MappingOf(*document);
    std::int32_t start =
        level.StartSelect < level.StartView ? 0 : mapping.ByteToColumn(level.StartSelect);
    std::int32_t end =
        level.EndSelect > level.EndView ? width : mapping.ByteToColumn(level.EndSelect);
    if (level.StartSelect > level.EndView || level.EndSelect < level.StartView) start = end = 0;
    if (start > end) start = 0;
    services_.Selection = {start, end};
    if (services_.Settings.TypeView != TypeViewConstants::SPECTRAL) RenderBackground();
}

void DocumentPicture::BuildOverviewSummary() {
    picture_.SetProgress(0);
    sound_.Overview().Build();
}

void DocumentPicture::ReportOverviewSummary() {
    picture_.SetProgress(0);
    sound_.Overview().Report();
}

// Ranges are shaded in the background.
void DocumentPicture::MarkersChanged() {
    if (services_.Settings.TypeView != TypeViewConstants::SPECTRAL) RenderBackground();
    Redraw();
}

void DocumentPicture::ReleaseDocument() {
    sound_.Overview().Free();
    layout_.ResetLevelScale();
}

void DocumentPicture::Compose(platform::DrawingTarget& target) {
    picture_.Compose();
    picture_.Show(target);
}

}  // namespace mavrin2::view
