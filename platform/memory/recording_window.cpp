#include "platform/memory/recording_window.h"

#include <vector>

#include "platform/pixel_target.h"

namespace mavrin2::platform {

void RecordingWindow::Send(const MouseEvent& event) {
    const bool over = event.X >= 0 && event.X < width_ && event.Y >= 0 && event.Y < height_;
    if (destroyed_ || (!over && !captured_)) return;
    tip_.clear();
    handler_.Mouse(event);
}

void RecordingWindow::LoseCapture() {
    if (std::exchange(captured_, false)) handler_.CaptureLost();
}

void RecordingWindow::Destroy() {
    captured_ = false;
    if (!std::exchange(destroyed_, true)) handler_.Destroyed();
}

void RecordingWindow::Move(const RECT& place, const RECT&) {
    width_ = place.right - place.left;
    height_ = place.bottom - place.top;
    Note("move");
}

bool RecordingWindow::DrawNow(const std::function<void(DrawingTarget& target)>& draw) {
    if (destroyed_) return false;
    Note("draw");
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width_) *
                                      static_cast<std::size_t>(height_));
    PixelTarget target({pixels.data(), width_, height_, width_});
    draw(target);
    return true;
}

void RecordingWindow::CaptureMouse(bool capture) {
    if (destroyed_ || capture == captured_) return;
    captured_ = capture;
    Note(capture ? "capture" : "release");
}

void RecordingWindow::SetPointer(const platform::Pointer& pointer) {
    pointer_ = pointer.Shape;
    Note("pointer " + std::to_string(static_cast<int>(pointer_)));
}

void RecordingWindow::SetTip(const std::string& text, int x, int y) {
    tip_ = text;
    Note("tip " + std::to_string(x) + "," + std::to_string(y) + " " + text);
}

}  // namespace mavrin2::platform
