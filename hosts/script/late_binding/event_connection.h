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
    // Called synchronously for each event, with its arguments in the order of declaration. What it
    // throws goes to whoever raised the event, as a failing status.
    using Handler = std::function<void(DISPID event, std::span<const VARIANT> arguments)>;

    // Throws CallError when the object raises no events or refuses.
    EventConnection(IDispatch& object, Handler handler);
    EventConnection(const EventConnection&) = delete;
    EventConnection& operator=(const EventConnection&) = delete;
    ~EventConnection();

    const TypeDescription& Events() const { return events_; }

    // From then on the handler is not called; it may be what calls this. Closing again is harmless.
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
