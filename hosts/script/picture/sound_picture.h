#pragma once

#include "hosts/container/hosted_control.h"
#include "platform/offscreen_window.h"
#include "platform/pixels.h"

namespace mavrin2::script {

// What a control shows, drawn a few rows at a time, so that no memory is needed for all of them.
class SoundPicture {
public:
    // In pixels, for which HostWindow::CanBe holds. Throws CallError.
    SoundPicture(IUnknown& control, int width, int height)
        : window_(0, 0), control_(control, window_, width, height, false) {}

    // Draws the rows from `top` on, as many as `rows` has and as wide. Throws CallError.
    void Draw(int top, const platform::Pixels& rows);

private:
    platform::OffscreenWindow window_;  // inactive, the control draws nothing in it
    container::HostedControl control_;
};

}  // namespace mavrin2::script
