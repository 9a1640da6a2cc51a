#include "automation/event_sink.h"

#include <iterator>

#include "automation/guarded.h"
#include "automation/variant.h"

namespace mavrin2::automation {

bool EventArguments::Read(UINT position, LONG& value) const {
    Variant argument;
    UINT bad = 0;
    if (!parameters_ || FAILED(DispGetParam(parameters_, position, VT_I4, &argument, &bad)))
        return false;
    value = argument.lVal;
    return true;
}

std::vector<VARIANT> EventArguments::InOrder() const {
    if (!parameters_) return {};
    const std::span<const VARIANT> reversed(parameters_->rgvarg, parameters_->cArgs);
    return {reversed.rbegin(), reversed.rend()};
}

STDMETHODIMP EventSink::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                               EXCEPINFO*, UINT*) {
    const ComPtr<EventSink> held(this);
    if (muted_) return E_NOTIMPL;
    return Guarded([&] { return handler_(event, EventArguments(parameters)); });
}

HRESULT EventConnection::Open(IUnknown* source, const IID& events, EventSink::Handler handler) {
    Close();
    const auto container = ComPtr<IUnknown>(source).As<IConnectionPointContainer>();
    if (!container) return CONNECT_E_NOCONNECTION;
    ComPtr<IConnectionPoint> point;
    if (const HRESULT status = container->FindConnectionPoint(events, point.Put()); FAILED(status))
        return status;
    sink_ = MakeCounted<EventSink>(events, std::move(handler));
    const HRESULT status = point->Advise(sink_.Get(), &cookie_);
    if (SUCCEEDED(status))
        point_ = std::move(point);
    else
        sink_.Reset();
    return status;
}

void EventConnection::Close() {
    if (sink_) sink_->Mute();
    if (const auto point = std::exchange(point_, nullptr)) point->Unadvise(cookie_);
    sink_.Reset();
}

}  // namespace mavrin2::automation
