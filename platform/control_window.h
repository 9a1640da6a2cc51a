#pragma once

#include <functional>
#include <memory>

#include "platform/automation.h"
#include "platform/drawing_target.h"

namespace mavrin2::platform {

// Called by the control's window, on the thread that made it. Nothing may be thrown.
class WindowHandler {
public:
    // Draws the whole client area, which begins at (0, 0) of the target.
    virtual void Paint(DrawingTarget& target, int width, int height) = 0;
    // The window went with its parent, without having been asked to: it has no handle any more.
    virtual void Destroyed() = 0;

protected:
    ~WindowHandler() = default;
};

// The control's own window inside the host's. Destroying it calls nobody. Used on one thread.
class ControlWindow {
public:
    ControlWindow() = default;
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;
    virtual ~ControlWindow() = default;

    // Null once the parent has taken the window along.
    virtual HWND Handle() const = 0;
    // `place` is where the window lies, `clip` what the host lets be seen of it: both in the
    // parent's client coordinates. The window is painted afterwards.
    virtual void Move(const RECT& place, const RECT& clip) = 0;
    virtual void Show(bool visible) = 0;
    // Has it painted when the host comes to it.
    virtual void Invalidate() = 0;
    // Runs `draw` on the client area at once. False when there is no window any more.
    virtual bool DrawNow(const std::function<void(DrawingTarget& target)>& draw) = 0;
};

// A new window, visible, in the host's. Null when the host's cannot take one, or is none.
std::unique_ptr<ControlWindow> NewControlWindow(HWND parent, const RECT& place, const RECT& clip,
                                                WindowHandler& handler);

// Dots per inch of the screen, across and down.
SIZE ScreenResolution();

}  // namespace mavrin2::platform
