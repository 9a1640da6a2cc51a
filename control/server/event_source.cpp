#include "control/server/event_source.h"

#include "automation/variant.h"
#include "control/interfaces/events.h"

namespace mavrin2::server {

using automation::Variant;
using interfaces::ControlEvent;

namespace {

void Fire(const automation::ConnectionPoint& point, ControlEvent event,
          std::span<const VARIANT> arguments = {}) {
    automation::FireEvent(point, static_cast<DISPID>(event), arguments);
}

void FireMouse(const automation::ConnectionPoint& point, ControlEvent event, int button,
               int modifiers, std::int16_t x, std::int16_t y) {
    const VARIANT arguments[] = {Variant::Int32(button), Variant::Int32(modifiers),
                                 Variant::Int16(x), Variant::Int16(y)};
    Fire(point, event, arguments);
}

void FireNumber(const automation::ConnectionPoint& point, ControlEvent event, std::int32_t number) {
    const VARIANT arguments[] = {Variant::Int32(number)};
    Fire(point, event, arguments);
}

}  // namespace

void EventSource::BlockOperation(int percent) {
    const VARIANT arguments[] = {Variant::Int16(static_cast<SHORT>(percent))};
    Fire(point_, ControlEvent::BlockOperation, arguments);
}

void EventSource::EndOperation() {
    Fire(point_, ControlEvent::EndOperation);
}

void EventSource::ChangePosition() {
    Fire(point_, ControlEvent::ChangePosition);
}

void EventSource::Meter(std::int32_t left, std::int32_t right) {
    const VARIANT arguments[] = {Variant::Int32(left), Variant::Int32(right)};
    Fire(point_, ControlEvent::Meter, arguments);
}

void EventSource::ChangePlayPosition() {
    Fire(point_, ControlEvent::ChangePlayPosition);
}

void EventSource::EndPlay() {
    Fire(point_, ControlEvent::EndPlay);
}

void EventSource::GainChange(std::int32_t gain) {
    FireNumber(point_, ControlEvent::GainChange, gain);
}

void EventSource::DblClick() {
    Fire(point_, ControlEvent::DblClick);
}

void EventSource::MouseDown(int button, int modifiers, std::int16_t x, std::int16_t y) {
    FireMouse(point_, ControlEvent::MouseDown, button, modifiers, x, y);
}

void EventSource::MouseUp(int button, int modifiers, std::int16_t x, std::int16_t y) {
    FireMouse(point_, ControlEvent::MouseUp, button, modifiers, x, y);
}

void EventSource::MouseMove(int buttons, int modifiers, std::int16_t x, std::int16_t y) {
    FireMouse(point_, ControlEvent::MouseMove, buttons, modifiers, x, y);
}

void EventSource::ScaleXClick() {
    Fire(point_, ControlEvent::ScaleXClick);
}

void EventSource::ScaleYClick() {
    Fire(point_, ControlEvent::ScaleYClick);
}

void EventSource::MarkerClick(std::int32_t number) {
    FireNumber(point_, ControlEvent::MarkerClick, number);
}

void EventSource::NewMarker(std::int32_t number) {
    FireNumber(point_, ControlEvent::NewMarker, number);
}

void EventSource::ChangeMarker(std::int32_t number) {
    FireNumber(point_, ControlEvent::ChangeMarker, number);
}

}  // namespace mavrin2::server
