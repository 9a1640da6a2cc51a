#include "tests/platform/system_window.h"

namespace mavrin2::tests {

using platform::MouseAction;
using platform::MouseButton;

struct SystemWindow::Parent {
    HWND Window = ::CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 200, 100,
                                    nullptr, nullptr, nullptr, nullptr);
    ~Parent() { ::DestroyWindow(Window); }
};

SystemWindow::SystemWindow(platform::WindowHandler& handler) : parent_(std::make_unique<Parent>()) {
    Window =
        platform::NewControlWindow(parent_->Window, {10, 20, 110, 70}, {0, 0, 200, 100}, handler);
}

SystemWindow::~SystemWindow() = default;

void SystemWindow::Send(const platform::MouseEvent& event) {
    const bool left = event.Button == MouseButton::Left;
    UINT message = WM_MOUSEMOVE;
    if (event.Action == MouseAction::Down) message = left ? WM_LBUTTONDOWN : WM_RBUTTONDOWN;
    if (event.Action == MouseAction::Up) message = left ? WM_LBUTTONUP : WM_RBUTTONUP;
    if (event.Action == MouseAction::DoubleClick)
        message = left ? WM_LBUTTONDBLCLK : WM_RBUTTONDBLCLK;
    if (event.Action == MouseAction::Wheel) message = WM_MOUSEWHEEL;
    WPARAM keys = 0;
    const auto add = [&](int among, auto flag, WPARAM key) {
        if ((among & static_cast<int>(flag)) != 0) keys |= key;
    };
    add(event.Held, MouseButton::Left, MK_LBUTTON);
    add(event.Held, MouseButton::Right, MK_RBUTTON);
    add(event.Held, MouseButton::Middle, MK_MBUTTON);
    add(event.Modifiers, platform::Modifier::Shift, MK_SHIFT);
    add(event.Modifiers, platform::Modifier::Control, MK_CONTROL);
    add(event.Modifiers, platform::Modifier::Third, 0x20);
    POINT at = {event.X, event.Y};
    if (event.Action == MouseAction::Wheel) {
        keys |= static_cast<WPARAM>(static_cast<WORD>(event.Turn)) << 16;
        ::ClientToScreen(Window->Handle(), &at);
    }
    // The system finds the window that has captured the mouse, or is under it.
    const bool inside = event.X >= 0 && event.X < 100 && event.Y >= 0 && event.Y < 50;
    if (inside || ::GetCapture() == Window->Handle())
        ::SendMessageW(Window->Handle(), message, keys, MAKELPARAM(at.x, at.y));
}

void SystemWindow::LoseCapture() {
    ::SetCapture(parent_->Window);
    ::ReleaseCapture();
}

void SystemWindow::Destroy() {
    parent_.reset();
}

platform::PointerShape SystemWindow::Pointer() const {
    ::SendMessageW(Window->Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Window->Handle()),
                   MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    const HCURSOR now = ::GetCursor();
    if (now == ::LoadCursorW(nullptr, IDC_SIZEWE)) return platform::PointerShape::SizeWE;
    return platform::PointerShape::Arrow;
}

}  // namespace mavrin2::tests
