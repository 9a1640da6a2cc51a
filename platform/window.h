#pragma once

#include <memory>

#include "platform/control_window.h"

namespace mavrin2::platform {

// What a window handle points to on Linux, where hosts supply the windows: anything that shows
// pixels and can contain a control's window. Owned by the host; used on one thread.
class Window {
public:
    // A visible window inside this one, on top; rectangles as in ControlWindow. Null when this
    // window refuses children. A child that outlives this window reports Destroyed.
    virtual std::unique_ptr<ControlWindow> NewChild(const RECT& place, const RECT& clip,
                                                    WindowHandler& handler) = 0;

protected:
    ~Window() = default;
};

}  // namespace mavrin2::platform
