#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QImage>

#include "platform/window.h"

namespace mavrin2::desktop {

// What a control's window uses of the widget around it.
class Canvas {
public:
    // The pixels, which a change of size replaces.
    virtual std::shared_ptr<QImage> Image() const = 0;
    // To be shown, after the control has painted if it has to.
    virtual void Update() = 0;
    virtual void ShowPointer(const platform::Pointer& pointer) = 0;
    virtual void ShowTip(const std::string& text) = 0;
    // The control's window is being destroyed.
    virtual void Leave() = 0;

protected:
    ~Canvas() = default;
};

// The control's window inside a widget.
class ControlArea final : public platform::ControlWindow, public platform::Window {
public:
    ControlArea(Canvas& canvas, const RECT& place, const RECT& clip,
                platform::WindowHandler& handler)
        : canvas_(&canvas), place_(place), clip_(clip), handler_(handler) {}
    ~ControlArea() override;

    HWND Handle() const override { return canvas_ ? const_cast<ControlArea*>(this) : nullptr; }
    void Move(const RECT& place, const RECT& clip) override;
    void Show(bool visible) override;
    void Invalidate() override;
    bool DrawNow(const std::function<void(platform::DrawingTarget& target)>& draw) override;
    void CaptureMouse(bool capture) override { captured_ = capture; }
    void SetPointer(const platform::Pointer& pointer) override;
    void SetTip(const std::string& text, int x, int y) override;

    // A control's window has no children.
    std::unique_ptr<ControlWindow> NewChild(const RECT&, const RECT&,
                                            platform::WindowHandler&) override {
        return nullptr;
    }

    // From the widget. The handler may destroy this in each of them.
    void PaintIfInvalid();
    // An event at a pixel of the widget.
    void Send(platform::MouseEvent event);
    void LoseCapture();
    void Orphan();

    void MakeInvalid() { invalid_ = true; }

private:
    std::unique_ptr<platform::DrawingTarget> Target() const;
    bool IsAt(int x, int y) const;

    Canvas* canvas_;  // null once the widget is gone
    RECT place_;
    RECT clip_;
    platform::WindowHandler& handler_;
    bool visible_ = true;
    bool invalid_ = true;
    bool captured_ = false;
};

}  // namespace mavrin2::desktop
