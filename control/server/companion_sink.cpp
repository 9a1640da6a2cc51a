#include "control/server/companion_sink.h"

#include "automation/guarded.h"
#include "automation/variant.h"

namespace mavrin2::server {

bool EventArguments::Read(UINT position, LONG& value) const {
    automation::Variant argument;
    UINT bad = 0;
    if (!parameters_ || FAILED(DispGetParam(parameters_, position, VT_I4, &argument, &bad)))
        return false;
    value = argument.lVal;
    return true;
}

STDMETHODIMP CompanionSink::QueryInterface(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!IsEqualGUID(iid, events_) && !IsEqualGUID(iid, IID_IDispatch) &&
        !IsEqualGUID(iid, IID_IUnknown))
        return E_NOINTERFACE;
    AddRef();
    *object = static_cast<IDispatch*>(this);
    return S_OK;
}

STDMETHODIMP_(ULONG) CompanionSink::Release() {
    const ULONG left = --count_;
    if (left == 0) delete this;
    return left;
}

STDMETHODIMP CompanionSink::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                   VARIANT*, EXCEPINFO*, UINT*) {
    const automation::ComPtr<CompanionSink> held(this);
    if (!attached_) return E_NOTIMPL;
    return automation::Guarded([&] { return Handle(event, EventArguments(parameters)); });
}

void SinkConnection::Connect(IUnknown* companion, automation::ComPtr<CompanionSink> sink) {
    Disconnect();
    sink_ = std::move(sink);
    const auto container = automation::ComPtr<IUnknown>(companion).As<IConnectionPointContainer>();
    if (!container || FAILED(container->FindConnectionPoint(sink_->EventInterface(), point_.Put())))
        return;
    if (FAILED(point_->Advise(sink_.Get(), &cookie_))) point_.Reset();
}

void SinkConnection::Disconnect() {
    if (point_) point_->Unadvise(cookie_);
    point_.Reset();
    if (sink_) sink_->Detach();
    sink_.Reset();
}

}  // namespace mavrin2::server
