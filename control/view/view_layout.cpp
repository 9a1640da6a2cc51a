#include "control/view/view_layout.h"

namespace mavrin2::view {

void ViewLayout::TakeScales() {
    services_.HostStyle.LimitScaleTypes();
    scaleXFont_ = services_.Fonts.Load(services_.HostStyle.ScaleXFont());
    scaleYFont_ = services_.Fonts.Load(services_.HostStyle.ScaleYFont());
}

void ViewLayout::Layout(const Rectangle& bounds) {
    LayoutInput input;
    // First what may run a host's code.
    input.ScaleX = services_.HostStyle.ScaleX();
    input.ScaleY = services_.HostStyle.ScaleY();
    input.Width = bounds.Width();
    input.Height = bounds.Height();
    input.TypeView = services_.Settings.TypeView;
    input.ScaleXFont = scaleXFont_.get();
    input.ScaleYFont = scaleYFont_.get();
    input.Frequency = services_.Document.Format.Frequency;
    area_.Layout(input);
    busy_.Fit(area_.WaveWidth);
    ComputeTimeScale();
    ComputeLevelScale();
}

ViewThumb ViewLayout::Thumb() const {
    const editor::DocumentState* document = services_.Document.History.Current();
    if (!document) return ComputeViewThumb(area_, {}, {}, {});
    const editor::ZoomLevel level = document->Level();
    return ComputeViewThumb(area_, level.StartView, level.EndView, document->TotalBytes);
}

// A recording is shown in the cheapest way.
bool ViewLayout::TooSlowToFollow() const {
    return services_.Operation.Status.Status() == editor::StatusConstants::Recording &&
           services_.Recording.VisualizationInUse == editor::RecordState::CenterLine;
}

void ViewLayout::ComputeTimeScale() {
    if (!scaleXFont_ || TooSlowToFollow()) return;
    const ScaleSettings scale = services_.HostStyle.ScaleX();
    const editor::DocumentFormat& format = services_.Document.Format;
    const editor::DocumentState* document = services_.Document.History.Current();
    const editor::ZoomLevel level = document ? document->Level() : editor::ZoomLevel();
    time_.Compute(
        TimeRangeOf(level.StartView, level.EndView, document ? document->TotalBytes : Bytes(0),
                    format.Channels, format.Frequency, scale.Type),
        *scaleXFont_, area_.WaveWidth);
}

void ViewLayout::ComputeLevelScale() {
    if (!scaleYFont_) return;
    const ScaleSettings scale = services_.HostStyle.ScaleY();
    LevelScaleInput input;
    input.TypeView = services_.Settings.TypeView;
    input.Type = scale.Type;
    input.BitsPerSample = services_.Document.Format.BitsPerSample;
    input.Frequency = services_.Document.Format.Frequency;
    input.VerticalZoom = services_.Settings.VerticalZoom;
    input.WaveHeight = area_.WaveHeight;
    input.VisibleChannels = services_.Document.Channels.VisibleCount;
    level_.Compute(input, *scaleYFont_);
}

void ViewLayout::ResetLevelScale() {
    level_.Reset(services_.HostStyle.ScaleY().Type, services_.Document.Format.BitsPerSample);
}

}  // namespace mavrin2::view
