#pragma once

#include <memory>
#include <string>

#include "platform/control_window.h"

namespace mavrin2::tests {

// The running system's control window, 100 by 50 pixels in a parent, and its mouse.
class SystemWindow {
public:
    explicit SystemWindow(platform::WindowHandler& handler);
    ~SystemWindow();
    SystemWindow(const SystemWindow&) = delete;
    SystemWindow& operator=(const SystemWindow&) = delete;

    std::unique_ptr<platform::ControlWindow> Window;

    // At a pixel of the window.
    void Send(const platform::MouseEvent& event);
    void LoseCapture();
    void Destroy();
    platform::PointerShape Pointer() const;

private:
    struct Parent;
    std::unique_ptr<Parent> parent_;
};

}  // namespace mavrin2::tests
