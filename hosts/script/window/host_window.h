#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "hosts/container/hosted_control.h"
#include "platform/offscreen_window.h"

namespace mavrin2::script {

// A window without a screen that one control fills.
class HostWindow : public std::enable_shared_from_this<HostWindow> {
public:
    // What is larger is more than a control draws: 32767 pixels in a direction, 2^26 altogether.
    static constexpr bool CanBe(std::int64_t width, std::int64_t height) {
        constexpr std::int64_t kLongest = 32767;
        return width >= 0 && height >= 0 && width <= kLongest && height <= kLongest &&
               width * height <= std::int64_t{1} << 26;
    }

    // In pixels, for which CanBe holds. An active control has its own window inside; one that
    // is not is drawn whenever it says that its picture has changed. Throws CallError: also for an
    // object that is no control, and for a control that is somewhere already.
    HostWindow(IUnknown& control, int width, int height, bool active)
        : window_(width, height), control_(control, window_, width, height, active) {}

    // False once the control has left.
    bool IsOpen() const { return control_.IsOpen(); }
    void Resize(int width, int height);
    // Paints what is invalid and returns the content, valid until the next call of anything here.
    // Throws CallError when drawing fails or the window is closed.
    platform::Pixels Update();
    // What the mouse does, at a pixel of the window; the buttons held follow from it.
    void SendMouse(platform::MouseEvent event);
    platform::PointerShape Pointer() const { return window_.Pointer(); }
    // What a resting mouse is shown, UTF-8; empty for nothing.
    std::string Tip() const { return window_.Tip(); }

private:
    void CheckOpen() const;

    platform::OffscreenWindow window_;
    container::HostedControl control_;
    int held_ = 0;  // mouse buttons
};

}  // namespace mavrin2::script
