#pragma once

#include "control/view/mouse/gesture.h"

namespace mavrin2::view {

// Scrolls through the document. With the thumb in the overview bar, the mouse moves the visible
// range; on the time scale, it moves the sound itself.
class Scrolling final : public Gesture {
public:
    enum class With { Thumb, TimeScale };

    Scrolling(MouseContext& context, With with, Point at);

    void Move(Point at, const MouseZones& zones) override;

private:
    MouseContext& context_;
    With with_;
    std::int32_t anchor_;  // where the mouse was when it last scrolled
};

}  // namespace mavrin2::view
