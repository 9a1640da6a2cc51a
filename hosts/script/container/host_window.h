#pragma once

#include <cstdint>
#include <memory>

#include "automation/com_ptr.h"
#include "hosts/script/container/control_site.h"
#include "platform/offscreen_window.h"

namespace mavrin2::script {

// A window without a screen that one control fills. It knows the control as any container does:
// by its container interfaces.
class HostWindow : public std::enable_shared_from_this<HostWindow> {
public:
    // What is larger is more than a control draws: 32767 pixels in a direction, 2^26 altogether.
    static constexpr bool CanBe(std::int64_t width, std::int64_t height) {
        constexpr std::int64_t kLongest = 32767;
        return width >= 0 && height >= 0 && width <= kLongest && height <= kLongest &&
               width * height <= std::int64_t{1} << 26;
    }

    // In pixels, for which CanBe holds. An active control has a window of its own inside; one that
    // is not is drawn whenever it says that its picture has changed. Throws CallError: also for an
    // object that is no control, and for a control that is somewhere already.
    HostWindow(IUnknown& control, int width, int height, bool active);
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    ~HostWindow() { Close(); }

    // False once the control has left.
    bool IsOpen() const { return object_.Get() != nullptr; }
    void Resize(int width, int height);
    // Paints what is invalid and returns the content, valid until the next call of anything here.
    // Throws CallError when drawing fails or the window is closed.
    platform::Pixels Update();
    // The control leaves; harmless a second time.
    void Close();

private:
    void ShowControl();
    void Draw();

    platform::OffscreenWindow window_;
    std::shared_ptr<HostedControl> hosted_;
    automation::ComPtr<IOleObject> object_;
    automation::ComPtr<IViewObject> view_;
    bool active_;
};

}  // namespace mavrin2::script
