#pragma once

#include "control/editor/ports.h"
#include "control/processing/transport_view.h"
#include "control/view/picture.h"
#include "control/view/sound_columns.h"
#include "control/view/view_layout.h"
#include "control/view/view_services.h"

namespace mavrin2::view {

// The picture of the document, as the editor and the container ask for it. There is nothing to draw
// before the control is first painted.
class DocumentPicture final : public editor::DocumentView, public processing::TransportView {
public:
    explicit DocumentPicture(const ViewServices& services);
    DocumentPicture(const DocumentPicture&) = delete;
    DocumentPicture& operator=(const DocumentPicture&) = delete;

    Columns RecomputeColumns() override;
    void UpdateSelectionColumns() override;
    void BuildOverviewSummary() override;
    void ReportOverviewSummary() override;
    void ReleaseDocument() override;
    void ShowProgress(int percent) override { picture_.SetProgress(percent); }
    void FormatChanged() override;
    void MarkersChanged() override;
    void RenderBackground() override { picture_.RenderBackground(); }
    void Redraw() override { picture_.Redraw(); }

    void MovePlayCursor(Bytes position) override;
    void FollowRecording() override { layout_.ComputeTimeScale(); }
    void ShowLive(std::span<const std::int16_t> samples) override {
        sound_.ShowBlock(samples, services_.Settings.TypeView);
    }

    editor::BlockObserver& Observer() { return sound_.Overview(); }

    // A new place, of which these rows are kept in memory; Layout is due next.
    void Resize(const Rectangle& bounds, const RowRange& rows);
    // Other rows of the same place, drawn anew.
    void KeepRows(const RowRange& rows);
    const LayeredFrame& Frame() const { return picture_.Frame(); }
    const ViewLayout& Placement() const { return layout_; }
    // Places everything anew, and renders the background.
    void Layout();
    // Composes a frame and copies it to the target.
    void Compose(platform::DrawingTarget& target);
    // Copies the frame that there is.
    void Show(platform::DrawingTarget& target) { picture_.Show(target); }

    void TakePens() { picture_.TakePens(); }
    void TakeScales() { layout_.TakeScales(); }
    void BuildSpectralPictures() { sound_.BuildSpectralPictures(); }

    PictureSettings& Settings() { return services_.Settings; }
    // Percent; the level scale follows.
    void SetVerticalZoom(std::int32_t percent);

private:
    // Of the range that is shown of this document.
    ColumnMapping MappingOf(const editor::DocumentState& document) const;

    ViewServices services_;
    ViewLayout layout_;
    SoundColumns sound_;
    Picture picture_;
};

}  // namespace mavrin2::view
