#pragma once

#include <QWidget>
#include <memory>

#include "hosts/container/hosted_control.h"
#include "hosts/desktop/canvas/control_area.h"
#include "hosts/desktop/canvas/mouse_input.h"
#include "hosts/desktop/canvas/resting_tip.h"

namespace mavrin2::desktop {

// A widget that a control fills. The control draws in the screen's own pixels, of which there may
// be several to a unit of the toolkit.
class EditorWidget final : public QWidget, public platform::Window, private Canvas {
public:
    // Throws CallError when the control cannot be shown.
    explicit EditorWidget(IUnknown& control, QWidget* parent = nullptr);
    ~EditorWidget() override;

    // A second control's window is refused.
    std::unique_ptr<platform::ControlWindow> NewChild(const RECT& place, const RECT& clip,
                                                      platform::WindowHandler& handler) override;

    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    std::shared_ptr<QImage> Image() const override { return image_; }
    void Update() override { update(); }
    void ShowPointer(const platform::Pointer& pointer) override;
    void ShowTip(const std::string& text) override;
    void Leave() override;

    // Gives pixels and control the size of the widget.
    void Fit();
    void Send(const platform::MouseEvent& event);
    void LoseCapture();

    std::shared_ptr<QImage> image_;
    ControlArea* area_ = nullptr;  // the control's; it belongs to the control
    MouseInput mouse_;
    RestingTip tip_;
    std::unique_ptr<container::HostedControl> control_;
};

}  // namespace mavrin2::desktop
