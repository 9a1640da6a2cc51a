#pragma once

#include "control/server/container/container_state.h"
#include "platform/control_window.h"

namespace mavrin2::server {

// The control in its container's window: how it gets there, moves and leaves. Every step asks or
// notifies the container, which may call back at each: a newer change ends this one.
class InPlaceActivation final : public platform::WindowHandler {
public:
    // Both outlive it; `identity` is not counted.
    InPlaceActivation(IUnknown* identity, ContainerState& state)
        : identity_(identity), state_(state) {}
    InPlaceActivation(const InPlaceActivation&) = delete;
    InPlaceActivation& operator=(const InPlaceActivation&) = delete;
    ~InPlaceActivation() = default;

    // Shows the control in a window of its own, and with `forUser` as the one the user works
    // with. OLEOBJ_S_CANNOT_DOVERB_NOW without a site, E_ABORT when the container has changed its
    // mind meanwhile.
    HRESULT Activate(bool forUser);
    HRESULT DeactivateForUser();
    HRESULT Deactivate();
    // Out of sight until it is activated again.
    void Hide();

    // The container has given the control another place.
    void Move(const RECT& place, const RECT& clip);
    // Asks the container for a place of the new extent.
    HRESULT RequestPlace();

    bool Active() const { return active_; }
    // Null while inactive.
    HWND Window() const { return window_ ? window_->Handle() : nullptr; }
    bool DrawOnWindow(const std::function<void(platform::DrawingTarget& window)>& draw);
    void SetTip(const std::string& text, int x, int y);
    // Something else was painted with the picture: the window needs its own again.
    void RepaintWindow();
    void CaptureMouse(bool capture);
    // Kept for windows to come.
    void SetPointer(const platform::Pointer& pointer);

private:
    void Paint(platform::DrawingTarget& target, int width, int height) override;
    void Destroyed() override;
    void Mouse(const platform::MouseEvent& event) override;
    void CaptureLost() override;

    HRESULT Enter();
    HRESULT MakeWindow(unsigned turn);
    HRESULT EnterForUser();
    bool Overtaken(unsigned turn) const { return turn != turn_; }

    IUnknown* identity_;
    ContainerState& state_;
    automation::ComPtr<IOleInPlaceSite> site_;
    automation::ComPtr<IOleInPlaceFrame> frame_;
    automation::ComPtr<IOleInPlaceUIWindow> document_;
    std::unique_ptr<platform::ControlWindow> window_;
    platform::Pointer pointer_;
    RECT place_ = {};
    bool active_ = false;
    bool forUser_ = false;
    unsigned turn_ = 0;  // counts activations and deactivations
};

}  // namespace mavrin2::server
