#include "tests/platform/system_window.h"

#include "platform/offscreen_window.h"

namespace mavrin2::tests {

struct SystemWindow::Parent {
    platform::OffscreenWindow Window{200, 100};
};

SystemWindow::SystemWindow(platform::WindowHandler& handler) : parent_(std::make_unique<Parent>()) {
    Window =
        platform::NewControlWindow(&parent_->Window, {10, 20, 110, 70}, {0, 0, 200, 100}, handler);
}

SystemWindow::~SystemWindow() = default;

void SystemWindow::Send(const platform::MouseEvent& event) {
    platform::MouseEvent there = event;
    there.X += 10;
    there.Y += 20;
    parent_->Window.Send(there);
}

void SystemWindow::LoseCapture() {
    parent_->Window.TakeCapture();
}

void SystemWindow::Destroy() {
    parent_.reset();
}

platform::PointerShape SystemWindow::Pointer() const {
    return parent_->Window.Pointer();
}

}  // namespace mavrin2::tests
