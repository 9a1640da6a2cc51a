#pragma once

#include <functional>
#include <string>

#include "platform/drawing_target.h"
#include "platform/pointer.h"

namespace mavrin2::view {

// What the view needs to know of where the picture is shown. The base class shows nothing.
class Display {
public:
    virtual ~Display() = default;

    // Runs `draw` on the control's own window, whose client area begins at (0, 0). False when the
    // control has none.
    virtual bool DrawOnWindow(
        const std::function<void(platform::DrawingTarget& window)>& /*draw*/) {
        return false;
    }
    // Asks the container to have the control painted, which comes back as Paint, now or later.
    virtual void RequestRepaint() {}

    // While the mouse is captured, the control hears of it wherever it is.
    virtual void CaptureMouse(bool /*capture*/) {}
    virtual void SetPointer(const platform::Pointer& /*pointer*/) {}
    // Inside a mouse event: the text, UTF-8, that appears when the mouse rests on this pixel of the
    // control's own window.
    virtual void SetTip(const std::string& /*text*/, int /*x*/, int /*y*/) {}
};

}  // namespace mavrin2::view
