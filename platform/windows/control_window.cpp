#include "platform/control_window.h"

#include <windowsx.h>

#include <algorithm>
#include <mutex>
#include <optional>
#include <utility>

#include "platform/windows/cursors.h"
#include "platform/windows/tool_tip.h"
#include "platform/windows/wide.h"

namespace mavrin2::platform {
namespace {

constexpr wchar_t kWindowClass[] = L"KovMavrin2.Control";

HINSTANCE Module() {
    HMODULE module = nullptr;
    ::GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        kWindowClass, &module);
    return module;
}

int Modifiers(WPARAM keys) {
    return ((keys & MK_SHIFT) != 0 ? static_cast<int>(Modifier::Shift) : 0) |
           ((keys & MK_CONTROL) != 0 ? static_cast<int>(Modifier::Control) : 0) |
           ((keys & 0x20) != 0 ? static_cast<int>(Modifier::Third) : 0);
}

int Held(WPARAM keys) {
    return ((keys & MK_LBUTTON) != 0 ? static_cast<int>(MouseButton::Left) : 0) |
           ((keys & MK_RBUTTON) != 0 ? static_cast<int>(MouseButton::Right) : 0) |
           ((keys & MK_MBUTTON) != 0 ? static_cast<int>(MouseButton::Middle) : 0);
}

struct MouseMessage {
    UINT Message;
    MouseAction Action;
    MouseButton Button;
};

constexpr MouseMessage kMouseMessages[] = {
    {WM_MOUSEMOVE, MouseAction::Move, MouseButton::None},
    {WM_LBUTTONDOWN, MouseAction::Down, MouseButton::Left},
    {WM_LBUTTONUP, MouseAction::Up, MouseButton::Left},
    {WM_LBUTTONDBLCLK, MouseAction::DoubleClick, MouseButton::Left},
    {WM_RBUTTONDOWN, MouseAction::Down, MouseButton::Right},
    {WM_RBUTTONUP, MouseAction::Up, MouseButton::Right},
    {WM_RBUTTONDBLCLK, MouseAction::DoubleClick, MouseButton::Right},
    {WM_MOUSEWHEEL, MouseAction::Wheel, MouseButton::None},
};

// Nothing for messages that are not reported.
std::optional<MouseEvent> MouseEventOf(const MSG& message) {
    const auto* const found =
        std::ranges::find(kMouseMessages, message.message, &MouseMessage::Message);
    if (found == std::end(kMouseMessages)) return std::nullopt;
    MouseEvent event;
    event.Action = found->Action;
    event.Button = found->Button;
    POINT at = {GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
    if (event.Action == MouseAction::Wheel) {
        event.Turn = GET_WHEEL_DELTA_WPARAM(message.wParam);
        ::ScreenToClient(message.hwnd, &at);
    }
    event.X = at.x;
    event.Y = at.y;
    event.Held = Held(LOWORD(message.wParam));
    event.Modifiers = Modifiers(LOWORD(message.wParam));
    return event;
}

// Several threads may have controls.
std::mutex& ClassLock() {
    static std::mutex lock;
    return lock;
}

class ChildWindow final : public ControlWindow {
public:
    explicit ChildWindow(WindowHandler& handler) : handler_(handler) {}

    ~ChildWindow() override {
        if (window_) {
            ::SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
            ::DestroyWindow(window_);
        }
        // Fails as long as others have a window. A class must not outlast the module with its code.
        const std::lock_guard guard(ClassLock());
        ::UnregisterClassW(kWindowClass, Module());
    }

    bool Create(HWND parent, const RECT& place) {
        const std::lock_guard guard(ClassLock());
        WNDCLASSW description = {};
        description.style = CS_DBLCLKS;
        description.lpfnWndProc = &ChildWindow::Receive;
        description.hInstance = Module();
        description.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
        description.lpszClassName = kWindowClass;
        ::RegisterClassW(&description);  // it may be there already
        window_ = ::CreateWindowExW(
            0, kWindowClass, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN,
            place.left, place.top, Extent(place.left, place.right), Extent(place.top, place.bottom),
            parent, nullptr, Module(), this);
        return window_ != nullptr;
    }

    HWND Handle() const override { return window_; }

    void Move(const RECT& place, const RECT& clip) override {
        if (!window_) return;
        Clip(place, clip);
        ::SetWindowPos(window_, nullptr, place.left, place.top, Extent(place.left, place.right),
                       Extent(place.top, place.bottom), SWP_NOZORDER | SWP_NOACTIVATE);
        Invalidate();
    }

    // A region is given only where the host hides something: it costs at every drawing.
    void Clip(const RECT& place, const RECT& clip) {
        RECT seen = {};
        ::IntersectRect(&seen, &place, &clip);
        HRGN region = nullptr;
        if (!::EqualRect(&seen, &place)) {
            ::OffsetRect(&seen, -place.left, -place.top);
            region = ::CreateRectRgnIndirect(&seen);
        } else if (!clipped_) {
            return;
        }
        clipped_ = region != nullptr;
        ::SetWindowRgn(window_, region, TRUE);  // which owns it from now on
    }

    void Show(bool visible) override {
        if (window_) ::ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
    }

    void Invalidate() override {
        if (window_) ::InvalidateRect(window_, nullptr, FALSE);
    }

    void CaptureMouse(bool capture) override {
        if (!window_ || capture == captured_) return;
        captured_ = capture;
        if (capture)
            ::SetCapture(window_);
        else
            ::ReleaseCapture();
    }

    void SetPointer(const Pointer& pointer) override {
        OwnCursor image(pointer.Image ? NewCursor(*pointer.Image) : nullptr);
        pointer_ = image.Handle() ? image.Handle() : SystemCursor(pointer.Shape);
        POINT at = {};
        if (window_ && ::GetCursorPos(&at) && ::WindowFromPoint(at) == window_)
            ::SetCursor(pointer_);
        image_ = std::move(image);  // the old one is no longer shown
    }

    void SetTip(const std::string& text, int x, int y) override {
        if (window_) tip_.Show(window_, WideOf(text), {x, y}, message_);
    }

    bool DrawNow(const std::function<void(DrawingTarget& target)>& draw) override {
        if (!window_) return false;
        struct Context {
            explicit Context(HWND window) : Window(window), Handle(::GetDC(window)) {}
            Context(const Context&) = delete;
            Context& operator=(const Context&) = delete;
            ~Context() {
                if (Handle) ::ReleaseDC(Window, Handle);
            }
            HWND Window;
            HDC Handle;
        } const context(window_);
        if (const auto target = TargetOf(context.Handle)) draw(*target);
        return true;
    }

private:
    static int Extent(LONG first, LONG end) {
        return static_cast<int>(std::clamp<LONGLONG>(LONGLONG{end} - first, 0, 32767));
    }

    static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM first, LPARAM second) {
        if (message == WM_NCCREATE) {
            const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(second);
            ::SetWindowLongPtrW(window, GWLP_USERDATA,
                                reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
        }
        auto* child = reinterpret_cast<ChildWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
        if (child) {
            const MSG whole = {window, message, first, second, 0, {}};
            if (const auto event = MouseEventOf(whole)) {
                child->message_ = whole;
                child->handler_.Mouse(*event);  // which may delete the child
                return ::DefWindowProcW(window, message, first, second);
            }
            switch (message) {
                case WM_PAINT:
                    child->Paint(window);
                    return 0;
                case WM_ERASEBKGND:
                    return 1;  // painting covers everything
                case WM_SETCURSOR:
                    if (LOWORD(second) != HTCLIENT) break;
                    ::SetCursor(child->pointer_);
                    return TRUE;
                case WM_CAPTURECHANGED:
                    if (std::exchange(child->captured_, false)) child->handler_.CaptureLost();
                    return 0;
                case WM_NCDESTROY:
                    ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
                    // Not there yet when creating it fails.
                    if (std::exchange(child->window_, nullptr)) child->handler_.Destroyed();
                    break;
                default:
                    break;
            }
        }
        return ::DefWindowProcW(window, message, first, second);
    }

    void Paint(HWND window) {
        PAINTSTRUCT paint = {};
        const HDC context = ::BeginPaint(window, &paint);
        if (const auto target = TargetOf(context)) {
            RECT client = {};
            ::GetClientRect(window, &client);
            handler_.Paint(*target, client.right, client.bottom);
        }
        ::EndPaint(window, &paint);
    }

    WindowHandler& handler_;
    HWND window_ = nullptr;
    bool clipped_ = false;
    bool captured_ = false;
    HCURSOR pointer_ = SystemCursor(PointerShape::Arrow);
    OwnCursor image_;
    ToolTip tip_;
    MSG message_ = {};  // the last mouse message
};

}  // namespace

std::unique_ptr<ControlWindow> NewControlWindow(HWND parent, const RECT& place, const RECT& clip,
                                                WindowHandler& handler) {
    if (!::IsWindow(parent)) return nullptr;
    auto window = std::make_unique<ChildWindow>(handler);
    if (!window->Create(parent, place)) return nullptr;
    window->Clip(place, clip);
    return window;
}

SIZE ScreenResolution() {
    const HDC screen = ::GetDC(nullptr);
    const SIZE dots = {::GetDeviceCaps(screen, LOGPIXELSX), ::GetDeviceCaps(screen, LOGPIXELSY)};
    ::ReleaseDC(nullptr, screen);
    return dots;
}

}  // namespace mavrin2::platform
