#pragma once

#include <QMouseEvent>
#include <QWheelEvent>
#include <optional>

#include "hosts/desktop/canvas/double_clicks.h"
#include "platform/control_window.h"

namespace mavrin2::desktop {

// Turns the toolkit's mouse events into those of a window. Positions become pixels of the screen;
// `scale` is the number of them per unit of the toolkit.
class MouseInput {
public:
    // Nothing for buttons that are not reported.
    std::optional<platform::MouseEvent> Press(const QMouseEvent& event, double scale);
    static std::optional<platform::MouseEvent> Release(const QMouseEvent& event, double scale);
    static platform::MouseEvent Move(const QMouseEvent& event, double scale);
    // Nothing until a whole notch was turned: touch pads report small parts of one.
    std::optional<platform::MouseEvent> Turn(const QWheelEvent& event, double scale);

private:
    DoubleClicks doubleClicks_;
    int turned_ = 0;  // of a notch, in eighths of a degree
};

}  // namespace mavrin2::desktop
