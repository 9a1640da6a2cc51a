#include "hosts/script/late_binding/event_connection.h"

#include <atomic>
#include <utility>
#include <vector>

#include "automation/guarded.h"
#include "hosts/script/late_binding/call_error.h"
#include "hosts/script/late_binding/late_binding.h"

namespace mavrin2::script {
namespace {

using automation::ComPtr;

ComPtr<ITypeInfo> RequireEvents(IDispatch& object) {
    if (auto events = EventsOf(object)) return events;
    throw CallError(CONNECT_E_NOCONNECTION, "This object raises no events.");
}

}  // namespace

// Receives the events. It outlives the connection while it delivers one.
class EventConnection::Sink final : public IDispatch {
public:
    Sink(REFIID events, Handler handler) : events_(events), handler_(std::move(handler)) {}

    void Mute() { muted_ = true; }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (!IsEqualGUID(iid, IID_IUnknown) && !IsEqualGUID(iid, IID_IDispatch) &&
            !IsEqualGUID(iid, events_))
            return E_NOINTERFACE;
        AddRef();
        *object = static_cast<IDispatch*>(this);
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++count_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --count_;
        if (left == 0) delete this;
        return left;
    }

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                        EXCEPINFO*, UINT*) override {
        return automation::Guarded([&] {
            if (muted_) return;
            std::vector<VARIANT> arguments;
            if (parameters)
                arguments.assign(std::reverse_iterator(parameters->rgvarg + parameters->cArgs),
                                 std::reverse_iterator(parameters->rgvarg));
            handler_(event, arguments);
        });
    }

private:
    ~Sink() = default;

    const IID events_;
    const Handler handler_;
    bool muted_ = false;
    std::atomic<ULONG> count_ = 1;
};

EventConnection::EventConnection(IDispatch& object, Handler handler)
    : EventConnection(object, *RequireEvents(object), std::move(handler)) {}

EventConnection::EventConnection(IDispatch& object, ITypeInfo& events, Handler handler)
    : events_(events) {
    const GUID id = IdOf(events);
    const auto points = ComPtr<IDispatch>(&object).As<IConnectionPointContainer>();
    HRESULT status =
        points ? points->FindConnectionPoint(id, point_.Put()) : CONNECT_E_NOCONNECTION;
    if (SUCCEEDED(status)) {
        sink_ = ComPtr<Sink>::Adopt(new Sink(id, std::move(handler)));
        status = point_->Advise(sink_.Get(), &cookie_);
    }
    if (FAILED(status)) throw CallError(status, "Events: " + StatusText(status));
}

EventConnection::~EventConnection() {
    Close();
}

void EventConnection::Close() {
    if (sink_) sink_->Mute();
    if (const auto point = std::exchange(point_, nullptr)) point->Unadvise(cookie_);
    sink_.Reset();
}

}  // namespace mavrin2::script
