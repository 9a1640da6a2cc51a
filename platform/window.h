#pragma once

#include <memory>

#include "platform/control_window.h"

namespace mavrin2::platform {

// What a window handle stands for where hosts bring their windows along: whatever shows pixels and
// can take a control's window in. Belongs to whoever made it; used on one thread.
class Window {
public:
    // A visible window inside this one, above those that are there; rectangles as in ControlWindow.
    // Null when this window takes none. It may outlive this window, which then tells it.
    virtual std::unique_ptr<ControlWindow> NewChild(const RECT& place, const RECT& clip,
                                                    WindowHandler& handler) = 0;

protected:
    ~Window() = default;
};

}  // namespace mavrin2::platform
