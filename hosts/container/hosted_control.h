#pragma once

#include <memory>

#include "automation/com_ptr.h"
#include "hosts/container/control_site.h"
#include "platform/drawing_target.h"
#include "platform/window.h"

namespace mavrin2::container {

// A control that fills a window. It is known by its container interfaces only, as any container
// knows it. Throws CallError.
class HostedControl {
public:
    // The size is the window's, in pixels. An active control has its own window inside; one
    // that is not is drawn by the host whenever its picture has changed. The window must live until
    // Close. Refused: an object that is no control, and a control that is in a window already.
    HostedControl(IUnknown& control, platform::Window& window, int width, int height, bool active);
    HostedControl(const HostedControl&) = delete;
    HostedControl& operator=(const HostedControl&) = delete;
    ~HostedControl() { Close(); }

    // False once the control has left.
    bool IsOpen() const { return object_.Get() != nullptr; }
    bool IsActive() const { return active_; }
    // The window has another size.
    void Resize(int width, int height);
    // Whether the picture has changed since the last call.
    bool TakePictureChange();
    // Draws a control that is not active.
    void Draw(platform::DrawingTarget& target);
    // The control leaves; harmless a second time.
    void Close();

private:
    void Show(platform::Window& window);

    std::shared_ptr<ControlPlace> place_;
    automation::ComPtr<IOleObject> object_;
    automation::ComPtr<IViewObject> view_;
    bool active_;
};

}  // namespace mavrin2::container
