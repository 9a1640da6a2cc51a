#pragma once

#include <functional>
#include <span>

#include "automation/event_sink.h"
#include "hosts/binding/type_description.h"
#include "platform/automation.h"

namespace mavrin2::binding {

// A connection to the default events of an object, until it is closed or destroyed. An open one
// keeps the object alive.
class EventConnection {
public:
    // Called synchronously for each event, with its arguments in the order of declaration. An
    // exception becomes a failing status for the object that raised the event.
    using Handler = std::function<void(DISPID event, std::span<const VARIANT> arguments)>;

    // Throws CallError if the object raises no events or refuses the connection.
    EventConnection(IDispatch& object, Handler handler);

    const TypeDescription& Events() const { return events_; }

    // The handler is not called any more. It may itself call this. Closing twice is harmless.
    void Close() { connection_.Close(); }

private:
    EventConnection(IDispatch& object, ITypeInfo& events, Handler handler);

    TypeDescription events_;
    automation::EventConnection connection_;
};

}  // namespace mavrin2::binding
