#pragma once

#include <array>
#include <functional>
#include <span>
#include <vector>

#include "automation/counted.h"

namespace mavrin2::automation {

// The arguments of an event.
class EventArguments {
public:
    explicit EventArguments(DISPPARAMS* parameters) : parameters_(parameters) {}

    // One of them, counted from 0, as a 32-bit integer. False when there is no such argument or it
    // is not a number; `value` is then unchanged.
    bool Read(UINT position, LONG& value) const;
    // All of them in the order of declaration. They belong to the caller of the event.
    std::vector<VARIANT> InOrder() const;

private:
    DISPPARAMS* parameters_;
};

// A dispatch interface that is only called by identifier, over a base that implements IDispatch.
template <class Base>
class EventReceiver : public Base {
public:
    explicit EventReceiver(const IID& events) : events_(events) {}

    STDMETHODIMP GetTypeInfoCount(UINT*) final { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) final { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) final { return E_NOTIMPL; }

protected:
    void* FindMore(REFIID iid) override {
        return IsEqualGUID(iid, events_) ? static_cast<IDispatch*>(this) : nullptr;
    }

private:
    const IID events_;
};

// Passes the events of one interface to a function until it is muted; then, and for an event that
// the function does not know, the answer is E_NOTIMPL. An exception becomes a failing status.
class EventSink final : public EventReceiver<Counted<IDispatch>> {
public:
    using Handler = std::function<HRESULT(DISPID event, const EventArguments& arguments)>;

    EventSink(const IID& events, Handler handler)
        : EventReceiver(events), handler_(std::move(handler)) {}

    void Mute() { muted_ = true; }

    STDMETHODIMP Invoke(DISPID event, REFIID reserved, LCID locale, WORD flags,
                        DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                        UINT* badArgument) override;

private:
    const Handler handler_;
    bool muted_ = false;
};

// A connection to the events of an object, until it is closed or destroyed. An open one keeps the
// object alive.
class EventConnection {
public:
    EventConnection() = default;
    EventConnection(const EventConnection&) = delete;
    EventConnection& operator=(const EventConnection&) = delete;
    ~EventConnection() { Close(); }

    // Fails with CONNECT_E_NOCONNECTION when `source` is null or has no such events.
    HRESULT Open(IUnknown* source, const IID& events, EventSink::Handler handler);
    // The handler is not called any more. It may itself call this. Closing twice is harmless.
    void Close();

private:
    ComPtr<IConnectionPoint> point_;
    ComPtr<EventSink> sink_;
    DWORD cookie_ = 0;
};

// A row of a table of events: the first so many arguments are read as 32-bit integers; when one of
// them cannot be read, the receiver is not called.
template <class Receiver>
struct EventReaction {
    DISPID Event;
    UINT Arguments;  // 3 at most
    void (*React)(Receiver& receiver, std::span<const LONG> arguments);
};

// `table` and `receiver` must outlive the sink, or the sink's connection.
template <class Receiver>
EventSink::Handler HandlerOf(std::span<const EventReaction<Receiver>> table, Receiver& receiver) {
    return [table, &receiver](DISPID event, const EventArguments& arguments) -> HRESULT {
        for (const EventReaction<Receiver>& row : table) {
            if (row.Event != event) continue;
            std::array<LONG, 3> values{};
            for (UINT i = 0; i < row.Arguments; ++i)
                if (!arguments.Read(i, values.at(i))) return E_NOTIMPL;
            row.React(receiver, std::span(values).first(row.Arguments));
            return S_OK;
        }
        return E_NOTIMPL;
    };
}

}  // namespace mavrin2::automation
