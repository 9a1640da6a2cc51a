#pragma once

#include <functional>
#include <string>
#include <utility>

#include "automation/event_sink.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::tests {

// A sink of the control's events. It records them as "10%" for BlockOperation, "end" for
// EndOperation, "position" for ChangePosition, "down(1,0,20,30)" for those of the mouse,
// "marker(2)" for those of markers, each with a space before it but the first; anything that is not
// called as it should be is written down as "?".
class EventRecorder final : public automation::EventReceiver<automation::Counted<IDispatch>> {
public:
    EventRecorder() : EventReceiver(interfaces::DIID_IMavrin2Events) {}

    // Connects with an object's point for the control's events, until the object goes.
    void Connect(IUnknown* object);

    std::string Log;
    // What was recorded since the last time.
    std::string Take() { return std::exchange(Log, {}); }

    // Once, inside the nth event from now (1: the next one).
    void InEvent(int nth, std::function<void()> action) {
        countdown_ = nth;
        action_ = std::move(action);
    }
    // Whether it came to that.
    bool Acted() const { return countdown_ <= 0; }

    STDMETHODIMP Invoke(DISPID event, REFIID reserved, LCID locale, WORD flags,
                        DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                        UINT* badArgument) override;

private:
    int countdown_ = 0;
    std::function<void()> action_;
};

}  // namespace mavrin2::tests
