#pragma once

#include <cstdint>

namespace mavrin2::view {

// Events of the mouse, for the host. Host code runs inside each call and may do anything, as in
// editor::EditorEvents.
class MouseEvents {
public:
    virtual ~MouseEvents() = default;

    virtual void DblClick() = 0;
    // `button` 1 left, 2 right; of MouseMove the sum of those held, 4 being the middle one.
    // `modifiers`: 1 Shift, 2 Ctrl, 4 a third. In pixels from the picture's upper left corner.
    virtual void MouseDown(int button, int modifiers, std::int16_t x, std::int16_t y) = 0;
    virtual void MouseUp(int button, int modifiers, std::int16_t x, std::int16_t y) = 0;
    virtual void MouseMove(int buttons, int modifiers, std::int16_t x, std::int16_t y) = 0;
    virtual void ScaleXClick() = 0;
    virtual void ScaleYClick() = 0;
    // Numbers of markers count from 1.
    virtual void MarkerClick(std::int32_t number) = 0;
    virtual void NewMarker(std::int32_t number) = 0;
};

}  // namespace mavrin2::view
