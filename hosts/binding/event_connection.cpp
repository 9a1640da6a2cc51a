#include "hosts/binding/event_connection.h"

#include <utility>

#include "hosts/binding/call_error.h"
#include "hosts/binding/late_binding.h"

namespace mavrin2::binding {
namespace {

using automation::ComPtr;

ComPtr<ITypeInfo> RequireEvents(IDispatch& object) {
    if (auto events = EventsOf(object)) return events;
    throw CallError(CONNECT_E_NOCONNECTION, "This object raises no events.");
}

}  // namespace

EventConnection::EventConnection(IDispatch& object, Handler handler)
    : EventConnection(object, *RequireEvents(object), std::move(handler)) {}

EventConnection::EventConnection(IDispatch& object, ITypeInfo& events, Handler handler)
    : events_(events) {
    const auto pass = [handler = std::move(handler)](DISPID event,
                                                     const automation::EventArguments& arguments) {
        handler(event, arguments.InOrder());
        return S_OK;
    };
    if (const HRESULT status = connection_.Open(&object, IdOf(events), pass); FAILED(status))
        throw CallError(status, "Events: " + StatusText(status));
}

}  // namespace mavrin2::binding
