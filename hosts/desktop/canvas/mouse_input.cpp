#include "hosts/desktop/canvas/mouse_input.h"

#include <QtMath>

namespace mavrin2::desktop {
namespace {

using platform::Modifier;
using platform::MouseAction;
using platform::MouseButton;
using platform::MouseEvent;

constexpr int kNotch = 120;

MouseButton ButtonOf(Qt::MouseButton button) {
    if (button == Qt::LeftButton) return MouseButton::Left;
    if (button == Qt::RightButton) return MouseButton::Right;
    return MouseButton::None;
}

int HeldOf(Qt::MouseButtons buttons) {
    int held = 0;
    if (buttons & Qt::LeftButton) held |= static_cast<int>(MouseButton::Left);
    if (buttons & Qt::RightButton) held |= static_cast<int>(MouseButton::Right);
    if (buttons & Qt::MiddleButton) held |= static_cast<int>(MouseButton::Middle);
    return held;
}

int ModifiersOf(Qt::KeyboardModifiers keys) {
    int modifiers = 0;
    if (keys & Qt::ShiftModifier) modifiers |= static_cast<int>(Modifier::Shift);
    if (keys & Qt::ControlModifier) modifiers |= static_cast<int>(Modifier::Control);
    if (keys & Qt::AltModifier) modifiers |= static_cast<int>(Modifier::Third);
    return modifiers;
}

MouseEvent EventOf(const QSinglePointEvent& event, double scale) {
    MouseEvent result;
    result.X = qFloor(event.position().x() * scale);
    result.Y = qFloor(event.position().y() * scale);
    result.Held = HeldOf(event.buttons());
    result.Modifiers = ModifiersOf(event.modifiers());
    return result;
}

}  // namespace

std::optional<MouseEvent> MouseInput::Press(const QMouseEvent& event, double scale) {
    MouseEvent result = EventOf(event, scale);
    result.Button = ButtonOf(event.button());
    const bool second =
        doubleClicks_.IsSecond(result.Button, result.X, result.Y, event.timestamp());
    if (result.Button == MouseButton::None) return std::nullopt;
    result.Action = second ? MouseAction::DoubleClick : MouseAction::Down;
    return result;
}

std::optional<MouseEvent> MouseInput::Release(const QMouseEvent& event, double scale) {
    MouseEvent result = EventOf(event, scale);
    result.Action = MouseAction::Up;
    result.Button = ButtonOf(event.button());
    if (result.Button == MouseButton::None) return std::nullopt;
    return result;
}

MouseEvent MouseInput::Move(const QMouseEvent& event, double scale) {
    return EventOf(event, scale);
}

std::optional<MouseEvent> MouseInput::Turn(const QWheelEvent& event, double scale) {
    // With Alt held the toolkit reports the wheel as turned sideways.
    const bool sideways = event.modifiers() & Qt::AltModifier;
    const int turn = sideways ? event.angleDelta().x() : event.angleDelta().y();
    if ((turn < 0) != (turned_ < 0)) turned_ = 0;
    turned_ += turn;
    if (qAbs(turned_) < kNotch) return std::nullopt;
    MouseEvent result = EventOf(event, scale);
    result.Action = MouseAction::Wheel;
    result.Turn = turned_ / kNotch * kNotch;
    turned_ %= kNotch;
    return result;
}

}  // namespace mavrin2::desktop
