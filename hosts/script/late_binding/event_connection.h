#pragma once

#include <functional>
#include <memory>
#include <span>

#include "automation/com_ptr.h"
#include "hosts/script/late_binding/type_description.h"
#include "platform/automation.h"

namespace mavrin2::script {

// A connection to the default events of an object, until it is closed or destroyed. An open one
// keeps the object alive.
class EventConnection {
public:
    // Called synchronously for each event, with its arguments in the order of declaration. An
    // exception becomes a failing status for the object that raised the event.
    using Handler = std::function<void(DISPID event, std::span<const VARIANT> arguments)>;

    // Throws CallError if the object raises no events or refuses the connection.
    EventConnection(IDispatch& object, Handler handler);
    EventConnection(const EventConnection&) = delete;
    EventConnection& operator=(const EventConnection&) = delete;
    ~EventConnection();

    const TypeDescription& Events() const { return events_; }

    // The handler is not called any more. It may itself call this. Closing twice is harmless.
    void Close();

private:
    class Sink;

    EventConnection(IDispatch& object, ITypeInfo& events, Handler handler);

    TypeDescription events_;
    automation::ComPtr<IConnectionPoint> point_;
    automation::ComPtr<Sink> sink_;
    DWORD cookie_ = 0;
};

}  // namespace mavrin2::script
