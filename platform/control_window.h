#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/automation.h"
#include "platform/drawing_target.h"
#include "platform/pointer.h"

namespace mavrin2::platform {

enum class MouseAction { Move, Down, Up, DoubleClick, Wheel };

// Buttons; those held are a sum. Presses and releases of the middle one are not reported.
enum class MouseButton { None = 0, Left = 1, Right = 2, Middle = 4 };

// Keys held with the mouse, a sum. Third is bit 0x20 of the system's key state.
enum class Modifier { Shift = 1, Control = 2, Third = 4 };

struct MouseEvent {
    MouseAction Action = MouseAction::Move;
    // In the client area, and outside it while the mouse is captured.
    int X = 0;
    int Y = 0;
    MouseButton Button = MouseButton::None;  // of Down, Up and DoubleClick: Left or Right
    int Held = 0;                            // MouseButton, this one included while it is down
    int Modifiers = 0;
    int Turn = 0;  // of Wheel: 120 per notch, forward positive

    bool operator==(const MouseEvent&) const = default;
};

// Called by the control's window, on the thread that made it. Nothing may be thrown.
class WindowHandler {
public:
    // Draws the whole client area, which begins at (0, 0) of the target.
    virtual void Paint(DrawingTarget& target, int width, int height) = 0;
    // The window was destroyed with its parent: it has no handle any more.
    virtual void Destroyed() = 0;
    // A double click is Down, Up, DoubleClick and Up.
    virtual void Mouse(const MouseEvent& /*event*/) {}
    // Another window has captured the mouse instead.
    virtual void CaptureLost() {}

protected:
    ~WindowHandler() = default;
};

// The control's own window inside the host's. Destroying it does not call the handler. Used on one
// thread; it may be destroyed from inside any call of the handler.
class ControlWindow {
public:
    ControlWindow() = default;
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;
    virtual ~ControlWindow() = default;

    // Null once the window was destroyed with its parent.
    virtual HWND Handle() const = 0;
    // `place` is the window's rectangle, `clip` the part that the host shows of it, both in the
    // parent's client coordinates. The window is painted afterwards.
    virtual void Move(const RECT& place, const RECT& clip) = 0;
    virtual void Show(bool visible) = 0;
    // The window is painted with the host's next paints.
    virtual void Invalidate() = 0;
    // Runs `draw` on the client area at once. False when the window was destroyed.
    virtual bool DrawNow(const std::function<void(DrawingTarget& target)>& draw) = 0;

    // While the mouse is captured, all its events come here, wherever it is.
    virtual void CaptureMouse(bool capture) = 0;
    // Shown at once and while the mouse is over the window. An arrow at first.
    virtual void SetPointer(const Pointer& pointer) = 0;
    // The text, UTF-8, that appears when the mouse rests on this pixel; empty for none. Called from
    // inside Mouse.
    virtual void SetTip(const std::string& text, int x, int y) = 0;
};

// A new visible window in the host's. Null when `parent` is no window or refuses children.
std::unique_ptr<ControlWindow> NewControlWindow(HWND parent, const RECT& place, const RECT& clip,
                                                WindowHandler& handler);

// Dots per inch of the screen, across and down.
SIZE ScreenResolution();

}  // namespace mavrin2::platform
