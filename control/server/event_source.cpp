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

}  // namespace mavrin2::server
