#include "control/server/container/quick_activation.h"

#include "control/interfaces/events.h"

namespace mavrin2::server {

using automation::ComPtr;

template <class Interface>
ComPtr<Interface> QuickActivation::Own() const {
    ComPtr<Interface> own = ComPtr<IUnknown>(Identity()).As<Interface>();
    if (!own) throw automation::StatusError{E_UNEXPECTED};
    return own;
}

void QuickActivation::Connect(const IID& outgoing, IUnknown* sink, DWORD* cookie) const {
    if (!sink) return;
    ComPtr<IConnectionPoint> point;
    automation::ThrowIfFailed(
        Own<IConnectionPointContainer>()->FindConnectionPoint(outgoing, point.Put()));
    automation::ThrowIfFailed(point->Advise(sink, cookie));
}

STDMETHODIMP QuickActivation::QuickActivate(QACONTAINER* container, QACONTROL* control) {
    return Run([&]() -> HRESULT {
        if (!container || !control) return E_POINTER;
        if (container->cbSize < sizeof(QACONTAINER) || control->cbSize < sizeof(QACONTROL))
            return E_INVALIDARG;
        *control = {};
        control->cbSize = sizeof(QACONTROL);

        const auto object = Own<IOleObject>();
        const auto view = Own<IViewObjectEx>();
        automation::ThrowIfFailed(object->SetClientSite(container->pClientSite));
        if (container->pAdviseSink)
            automation::ThrowIfFailed(view->SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink));
        Connect(IID_IPropertyNotifySink, container->pPropertyNotifySink,
                &control->dwPropNotifyCookie);
        Connect(interfaces::DIID_IMavrin2Events, container->pUnkEventSink, &control->dwEventCookie);
        automation::ThrowIfFailed(object->GetMiscStatus(DVASPECT_CONTENT, &control->dwMiscStatus));
        return view->GetViewStatus(&control->dwViewStatus);
    });
}

STDMETHODIMP QuickActivation::SetContentExtent(SIZEL* size) {
    return Run([&] { return Own<IOleObject>()->SetExtent(DVASPECT_CONTENT, size); });
}

STDMETHODIMP QuickActivation::GetContentExtent(SIZEL* size) {
    return Run([&] { return Own<IOleObject>()->GetExtent(DVASPECT_CONTENT, size); });
}

}  // namespace mavrin2::server
