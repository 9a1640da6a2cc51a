#include "control/view/picture.h"

#include <algorithm>

#include "control/view/column_mapping.h"
#include "control/view/lanes.h"
#include "control/view/painters/border_painter.h"
#include "control/view/painters/cursor_painter.h"
#include "control/view/painters/highlight_painter.h"
#include "control/view/painters/lane_painter.h"
#include "control/view/painters/level_scale_painter.h"
#include "control/view/painters/overview_bar_painter.h"
#include "control/view/painters/play_cursor_painter.h"
#include "control/view/painters/spectral_lane_painter.h"
#include "control/view/painters/time_scale_painter.h"
#include "control/view/painters/unit_label_painter.h"
#include "control/view/painters/waveform_painter.h"

namespace mavrin2::view {

Picture::Picture(const ViewServices& services)
    : services_(services), sound_(services_, area_), pens_(services.SystemColors) {}

Picture::~Picture() = default;

void Picture::TakePens() {
    pens_.TakeColors(services_.HostStyle.Colors());
}

void Picture::TakeScales() {
    services_.HostStyle.LimitScaleTypes();
    scaleXFont_ = services_.Fonts.Load(services_.HostStyle.ScaleXFont());
    scaleYFont_ = services_.Fonts.Load(services_.HostStyle.ScaleYFont());
}

void Picture::Resize(const Rectangle& bounds) {
    bounds_ = bounds;
    work_ = Surface(bounds.Width(), bounds.Height());
    background_ = Surface(bounds.Width(), bounds.Height());
    composed_ = false;
    sound_.ClearSpectralPictures();
}

void Picture::Layout() {
    LayoutInput input;
    input.Width = bounds_.Width();
    input.Height = bounds_.Height();
    if (TooSmall()) return;
    input.TypeView = typeView_;
    input.ScaleX = services_.HostStyle.ScaleX();
    input.ScaleY = services_.HostStyle.ScaleY();
    input.ScaleXFont = scaleXFont_.get();
    input.ScaleYFont = scaleYFont_.get();
    input.Frequency = services_.Document.Format.Frequency;
    area_.Layout(input);
    busy_.Fit(area_.WaveWidth);
    ComputeTimeScale();
    ComputeLevelScale();
    RenderBackground();
}

bool Picture::TooSmall() const {
    return bounds_.Width() < 2 && bounds_.Height() < 2;
}

ViewThumb Picture::Thumb() const {
    const editor::DocumentState* document = services_.Document.History.Current();
    if (!document) return ComputeViewThumb(area_, {}, {}, {});
    return ComputeViewThumb(area_, document->Level().StartView, document->Level().EndView,
                            document->TotalBytes);
}

void Picture::ComputeTimeScale() {
    if (!scaleXFont_) return;
    const ScaleSettings scale = services_.HostStyle.ScaleX();
    const editor::DocumentState* document = services_.Document.History.Current();
    const editor::ZoomLevel none;
    const editor::ZoomLevel& level = document ? document->Level() : none;
    time_.Compute(
        TimeRangeOf(level.StartView, level.EndView, document ? document->TotalBytes : Bytes(0),
                    services_.Document.Format.Channels, services_.Document.Format.Frequency,
                    scale.Type),
        *scaleXFont_, area_.WaveWidth);
}

void Picture::ComputeLevelScale() {
    if (!scaleYFont_) return;
    const ScaleSettings scale = services_.HostStyle.ScaleY();
    LevelScaleInput input;
    input.TypeView = typeView_;
    input.Type = scale.Type;
    input.BitsPerSample = services_.Document.Format.BitsPerSample;
    input.Frequency = services_.Document.Format.Frequency;
    input.VerticalZoom = verticalZoom_;
    input.WaveHeight = area_.WaveHeight;
    input.VisibleChannels = services_.Document.Channels.VisibleCount;
    level_.Compute(input, *scaleYFont_);
}

void Picture::SetVerticalZoom(std::int32_t percent) {
    verticalZoom_ = percent;
    ComputeLevelScale();
}

void Picture::FormatChanged() {
    ComputeTimeScale();
    ComputeLevelScale();
    RenderBackground();
}

Picture::Columns Picture::RecomputeColumns() {
    if (area_.WaveWidth < 1) return Columns::Nothing;
    ComputeTimeScale();
    return sound_.Recompute(typeView_) ? Columns::Recomputed : Columns::Failed;
}

void Picture::UpdateSelectionColumns() {
    const editor::ZoomLevel& level = services_.Document.History.Current()->Level();
    const ColumnMapping mapping{level.StartView, level.EndView, area_.WaveWidth,
                                services_.Document.Format.FrameSize()};
    selStartColumn_ =
        level.StartSelect < level.StartView ? 0 : mapping.ByteToColumn(level.StartSelect);
    selEndColumn_ =
        level.EndSelect > level.EndView ? area_.WaveWidth : mapping.ByteToColumn(level.EndSelect);
    if (level.StartSelect > level.EndView || level.EndSelect < level.StartView)
        selStartColumn_ = selEndColumn_ = 0;
    if (selStartColumn_ > selEndColumn_) selStartColumn_ = 0;
    if (typeView_ != TypeViewConstants::SPECTRAL) RenderBackground();
}

void Picture::BuildOverviewSummary() {
    progress_ = 0;
    sound_.Overview().Build();
}

void Picture::ReleaseDocument() {
    sound_.Overview().Free();
    level_.Reset(services_.HostStyle.ScaleY().Type, services_.Document.Format.BitsPerSample);
}

Scene Picture::CurrentScene() const {
    return {area_,
            pens_,
            services_.HostStyle.Colors(),
            services_.HostStyle.ScaleX(),
            services_.HostStyle.ScaleY(),
            *scaleXFont_,
            *scaleYFont_,
            time_,
            level_,
            sound_.Data(),
            busy_,
            services_.Document.History.Current(),
            services_.Document.Format,
            services_.Document.Channels,
            services_.Operation.Status.Status(),
            typeView_,
            typeBorder_,
            verticalZoom_,
            selStartColumn_,
            selEndColumn_,
            progress_,
            services_.Play.PlayColumn};
}

void Picture::RenderBackground() {
    backgroundDue_ = InBatch();
    if (backgroundDue_ || background_.Empty() || !scaleXFont_ || !scaleYFont_) return;
    const Scene scene = CurrentScene();
    background_.Fill({0, 0, background_.Width(), background_.Height()},
                     ToPixel(scene.Colors.Background));
    BorderPainter(scene).Draw(background_);
    if (!scene.Spectral()) HighlightPainter(scene).Draw(background_);
    LevelScalePainter(scene).Draw(background_);
}

// From the background to the foreground. Markers come last.
void Picture::ComposeFrame() {
    if (InBatch() || work_.Empty() || !scaleXFont_ || !scaleYFont_) return;
    if (backgroundDue_) RenderBackground();
    const Scene scene = CurrentScene();
    const ViewThumb thumb = Thumb();
    work_.CopyFrom(background_);
    TimeScalePainter(scene).Draw(work_);
    OverviewBarPainter(scene, thumb).Draw(work_);
    DrawLanes(scene);
    UnitLabelPainter(scene).Draw(work_);
    CursorPainter(scene, thumb).Draw(work_);
    composed_ = true;
}

void Picture::DrawLanes(const Scene& scene) {
    const Lanes lanes(area_, services_.Document.Channels, services_.Document.Format.Channels);
    const bool mono = services_.Document.Format.Channels < 2;
    for (const Lane& lane : lanes) {
        const LanePainter painter(scene, lane);
        const bool boundaries = mono ? !scene.Spectral()
                                     : lanes.Count() > 1 && !scene.Loading() &&
                                           scene.TypeView == TypeViewConstants::WAVEFORM;
        if (boundaries) painter.DrawBoundaries(work_);
        if (scene.Loading())
            painter.DrawBusyWave(work_);
        else if (scene.TypeView == TypeViewConstants::WAVEFORM)
            WaveformPainter(scene, lane).Draw(work_);
        else if (scene.Spectral())
            SpectralLanePainter(scene, lane, sound_.Spectral()).Draw(work_);
    }
}

void Picture::Compose(platform::DrawingTarget& target) {
    ComposeFrame();
    Show(target);
}

void Picture::Show(platform::DrawingTarget& target) {
    if (!composed_) return;
    target.Blit(bounds_.Left, bounds_.Top, work_.AsPixels());
    PlayCursorPainter(CurrentScene()).Draw(target, bounds_);
}

void Picture::Redraw() {
    if (InBatch()) return;
    ComposeFrame();
    if (!services_.Screen.DrawOnWindow([this](platform::DrawingTarget& window) {
            if (!TooSmall()) Show(window);
        }))
        services_.Screen.RequestRepaint();
}

}  // namespace mavrin2::view
