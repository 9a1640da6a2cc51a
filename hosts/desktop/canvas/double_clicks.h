#pragma once

#include <cstdint>

#include "platform/control_window.h"

namespace mavrin2::desktop {

// Tells which presses of the mouse are the second of a double click: same button, at most 500 ms
// and 4 pixels after the first one. A third press is a first one again.
class DoubleClicks {
public:
    // A press at a pixel, with the time in milliseconds.
    bool IsSecond(platform::MouseButton button, int x, int y, std::uint64_t time);

private:
    platform::MouseButton button_ = platform::MouseButton::None;  // of the press before, if single
    int x_ = 0;
    int y_ = 0;
    std::uint64_t time_ = 0;
};

}  // namespace mavrin2::desktop
