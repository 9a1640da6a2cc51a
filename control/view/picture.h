#pragma once

#include <functional>
#include <memory>

#include "control/editor/ports.h"
#include "control/view/geometry.h"
#include "control/view/level_scale.h"
#include "control/view/pens.h"
#include "control/view/scene.h"
#include "control/view/sound_columns.h"
#include "control/view/surface.h"
#include "control/view/time_scale.h"
#include "control/view/view_services.h"

namespace mavrin2::view {

// The picture of the document. It is made in two layers, so that little is drawn again: the
// BackgroundLayer has what changes only with layout, colours, selection and level scale, and the
// WorkLayer the composed frame. Neither exists before the control is first painted.
class Picture final : public editor::DocumentView {
public:
    explicit Picture(const ViewServices& services);
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
    ~Picture() override;

    Columns RecomputeColumns() override;
    void UpdateSelectionColumns() override;
    void BuildOverviewSummary() override;
    void ReleaseDocument() override;
    void ShowProgress(int percent) override { progress_ = percent; }
    void FormatChanged() override;
    void RenderBackground() override;
    // Composes and shows: on the control's window, or by asking the container.
    void Redraw() override;

    editor::BlockObserver& Observer() { return sound_.Overview(); }

    // The layers for a new place; Layout is due next.
    void Resize(const Rectangle& bounds);
    const Rectangle& Bounds() const { return bounds_; }
    // Every place anew, with the scales and the background.
    void Layout();
    // Makes the frame and copies it to the target.
    void Compose(platform::DrawingTarget& target);
    // Copies the frame that there is.
    void Show(platform::DrawingTarget& target);
    // The last frame. Empty before the first.
    const Surface& Frame() const { return work_; }

    // Takes the colours that pens have from the host's settings.
    void TakePens();
    // Takes the host's fonts and brings the scales' types into range.
    void TakeScales();
    void BuildSpectralPictures() { sound_.BuildSpectralPictures(); }

    TypeViewConstants TypeView() const { return typeView_; }
    void SetTypeView(TypeViewConstants type) { typeView_ = type; }
    std::int16_t TypeBorder() const { return typeBorder_; }
    void SetTypeBorder(std::int16_t type) { typeBorder_ = type; }
    // Percent; the level scale follows.
    void SetVerticalZoom(std::int32_t percent);

private:
    Scene CurrentScene() const;
    ViewThumb Thumb() const;
    void ComputeTimeScale();
    void ComputeLevelScale();
    void ComposeFrame();
    void DrawLanes(const Scene& scene);
    bool TooSmall() const;
    // Nothing is drawn inside a batch.
    bool InBatch() const { return services_.Document.Steps.BatchMode; }

    ViewServices services_;
    Geometry area_;
    BusyWave busy_;
    TimeScale time_;
    LevelScale level_;
    SoundColumns sound_;
    Pens pens_;
    std::shared_ptr<const platform::Font> scaleXFont_;
    std::shared_ptr<const platform::Font> scaleYFont_;

    Rectangle bounds_;
    Surface work_;
    Surface background_;
    bool backgroundDue_ = false;  // it has changed inside a batch
    bool composed_ = false;       // the frame, at these bounds

    TypeViewConstants typeView_ = TypeViewConstants::WAVEFORM;
    std::int16_t typeBorder_ = 1;
    std::int32_t verticalZoom_ = 100;
    std::int32_t selStartColumn_ = 0;
    std::int32_t selEndColumn_ = 0;
    std::int32_t progress_ = 0;
};

}  // namespace mavrin2::view
