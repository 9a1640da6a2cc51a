#include "control/view/picture.h"

#include "control/view/painters/cursor_painters.h"
#include "control/view/painters/frame_painters.h"
#include "control/view/painters/highlight_painter.h"
#include "control/view/painters/lane_painters.h"
#include "control/view/painters/marker_painter.h"
#include "control/view/painters/scale_painters.h"
#include "control/view/painters/waveform_painter.h"

namespace mavrin2::view {

Scene Picture::CurrentScene() const {
    // First what runs a host's code, if the host has put in objects of its own.
    const ColorSettings colors = services_.HostStyle.Colors();
    const ScaleSettings scaleX = services_.HostStyle.ScaleX();
    const ScaleSettings scaleY = services_.HostStyle.ScaleY();
    return {layout_.Area(),
            pens_,
            colors,
            scaleX,
            scaleY,
            layout_.ScaleXFont(),
            layout_.ScaleYFont(),
            layout_.Time(),
            layout_.Level(),
            layout_.Busy(),
            layout_.Thumb(),
            sound_.Data(),
            services_.Document.History.Current(),
            services_.Document.Format,
            services_.Document.Channels,
            services_.Operation.Status.Status(),
            services_.Recording,
            services_.Settings,
            services_.MarkerSettings,
            services_.Selection,
            services_.Drag,
            progress_};
}

void Picture::RenderBackground() {
    frame_.BackgroundDue = InBatch();
    if (frame_.BackgroundDue || !layout_.Ready() || frame_.Background().Empty()) return;
    const Scene scene = CurrentScene();
    Surface& background = frame_.Background();
    background.Fill({0, 0, background.Width(), background.Height()},
                    ToPixel(scene.Colors.Background));
    BorderPainter(scene).Draw(background);
    if (!scene.Spectral()) HighlightPainter(scene, services_.Markers.Entries()).Draw(background);
    LevelScalePainter(scene).Draw(background);
}

void Picture::Compose() {
    if (InBatch() || !layout_.Ready() || frame_.Background().Empty()) return;
    if (frame_.BackgroundDue) RenderBackground();
    const Scene scene = CurrentScene();
    Surface& frame = frame_.Begin();
    TimeScalePainter(scene).Draw(frame);
    OverviewBarPainter(scene).Draw(frame);
    DrawLanes(scene, frame);
    UnitLabelPainter(scene).Draw(frame);
    CursorPainter(scene).Draw(frame);
    MarkerPainter(scene, services_.Markers).DrawMarkers(frame);
    playCursor_ = ToPixel(scene.Colors.PlayCursor);
}

void Picture::DrawLanes(const Scene& scene, Surface& surface) const {
    const Lanes lanes(scene.Area, scene.Channels, scene.Format.Channels);
    const bool mono = scene.Format.Channels < 2;
    const bool waveform = scene.Settings.TypeView == TypeViewConstants::WAVEFORM;
    for (const Lane& lane : lanes) {
        const LanePainter painter(scene, lane);
        const bool boundaries =
            mono ? !scene.Spectral() : lanes.Count() > 1 && !scene.Loading() && waveform;
        if (boundaries) painter.DrawBoundaries(surface);
        if (scene.Loading())
            painter.DrawBusyWave(surface);
        else if (waveform)
            WaveformPainter(scene, lane).Draw(surface);
        else if (scene.Spectral())
            SpectralLanePainter(scene, lane, sound_.Spectral()).Draw(surface);
    }
}

void Picture::Show(platform::DrawingTarget& target) {
    if (!frame_.Show(target)) return;
    const auto status = services_.Operation.Status.Status();
    if (status != editor::StatusConstants::Playing && status != editor::StatusConstants::Paused)
        return;
    DrawPlayCursor(target, frame_.Bounds(), layout_.Area(),
                   CursorRangeOf(layout_.Area(), services_.Document.Channels,
                                 services_.Document.Format.Channels),
                   services_.Play.PlayColumn, playCursor_);
}

void Picture::Redraw() {
    if (InBatch()) return;
    // Before the window is asked for a target: composing may run a host's code.
    Compose();
    ShowAgain();
}

void Picture::ShowAgain() {
    if (InBatch()) return;
    if (!services_.Screen.DrawOnWindow([this](platform::DrawingTarget& window) {
            if (!frame_.TooSmall()) Show(window);
        }))
        services_.Screen.RequestRepaint();
}

}  // namespace mavrin2::view
