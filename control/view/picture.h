#pragma once

#include "control/view/layered_frame.h"
#include "control/view/pens.h"
#include "control/view/scene.h"
#include "control/view/sound_columns.h"
#include "control/view/view_layout.h"
#include "control/view/view_services.h"

namespace mavrin2::view {

// The order in which the picture is drawn, from the background to the foreground. Nothing is drawn
// inside a batch: what had become due is drawn with the first frame after it.
class Picture {
public:
    Picture(const ViewServices& services, const ViewLayout& layout, const SoundColumns& sound)
        : services_(services), layout_(layout), sound_(sound), pens_(services.SystemColors) {}
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    // Takes the colours that pens have from the host's settings.
    void TakePens() { pens_.TakeColors(services_.HostStyle.Colors()); }
    // How far a file has been read or written, in percent.
    void SetProgress(int percent) { progress_ = percent; }

    // Layers for a new place, without a frame.
    void Resize(const Rectangle& bounds, const RowRange& rows) { frame_.Resize(bounds, rows); }
    const LayeredFrame& Frame() const { return frame_; }

    void RenderBackground();
    void Compose();
    // Copies the last frame to the target, and draws the play cursor over it. Calls no host.
    void Show(platform::DrawingTarget& target);
    // Composes and shows: on the control's window, or by asking the container.
    void Redraw();
    // The same with the frame that there is.
    void ShowAgain();

private:
    bool InBatch() const { return services_.Document.Steps.BatchMode; }
    Scene CurrentScene() const;
    void DrawLanes(const Scene& scene, Surface& surface) const;

    const ViewServices& services_;
    const ViewLayout& layout_;
    const SoundColumns& sound_;
    LayeredFrame frame_;
    Pens pens_;
    Pixel playCursor_;  // of the last frame
    int progress_ = 0;
};

}  // namespace mavrin2::view
