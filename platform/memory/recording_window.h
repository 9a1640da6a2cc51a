#pragma once

#include <string>
#include <utility>

#include "platform/control_window.h"

namespace mavrin2::platform {

// A control's window of a test, which says what the mouse does and sees what the control asks for.
class RecordingWindow final : public ControlWindow {
public:
    RecordingWindow(WindowHandler& handler, int width, int height)
        : handler_(handler), width_(width), height_(height) {}

    // What was asked for since the last time: "capture", "release", "pointer 9", "tip 3,4 text",
    // "move", "show", "hide", "invalidate", "draw", with ", " between them.
    std::string Take() { return std::exchange(calls_, {}); }
    PointerShape Pointer() const { return pointer_; }
    const std::string& Tip() const { return tip_; }

    // To the control, if the mouse is over the window or captured.
    void Send(const MouseEvent& event);
    void LoseCapture();
    // As its parent would.
    void Destroy();

    HWND Handle() const override { return nullptr; }
    void Move(const RECT& place, const RECT&) override;
    void Show(bool visible) override { Note(visible ? "show" : "hide"); }
    void Invalidate() override { Note("invalidate"); }
    bool DrawNow(const std::function<void(DrawingTarget& target)>& draw) override;
    void CaptureMouse(bool capture) override;
    void SetPointer(const platform::Pointer& pointer) override;
    void SetTip(const std::string& text, int x, int y) override;

private:
    void Note(const std::string& call) { calls_ += (calls_.empty() ? "" : ", ") + call; }

    WindowHandler& handler_;
    int width_;
    int height_;
    bool destroyed_ = false;
    bool captured_ = false;
    PointerShape pointer_ = PointerShape::Arrow;
    std::string tip_;
    std::string calls_;
};

}  // namespace mavrin2::platform
