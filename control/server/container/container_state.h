#pragma once

#include <functional>

#include "automation/com_ptr.h"
#include "control/view/rectangle.h"
#include "platform/control_window.h"
#include "platform/drawing_target.h"

namespace mavrin2::server {

// Shows the picture at `bounds`, of which only these rows will be seen.
using PaintPicture = std::function<void(platform::DrawingTarget& target,
                                        const view::Rectangle& bounds, const view::RowRange& rows)>;

struct MouseInput {
    std::function<void(const platform::MouseEvent& event)> Event;
    std::function<void()> CaptureLost;
};

// Five inches by two, until a container says otherwise.
inline constexpr SIZEL kDefaultExtent{12700, 5080};

// What a container and the control have agreed on. Owned by the container's front, shared by the
// parts that answer for its interfaces.
struct ContainerState {
    automation::ComPtr<IOleClientSite> Site;
    SIZEL Extent = kDefaultExtent;  // in hundredths of a millimetre
    bool Changed = false;           // since the container has saved or loaded it
    PaintPicture Paint;             // empty while there is nothing to be seen
    MouseInput Mouse;               // of the control's window; empty together with Paint
};

}  // namespace mavrin2::server
