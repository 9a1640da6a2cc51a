#pragma once

#include "control/server/container/container_part.h"
#include "control/server/container/in_place_activation.h"
#include "control/server/container/notifications.h"

namespace mavrin2::server {

// The control as an object in a container's document: its site, its size, its verbs, its end.
class OleObject final : public ContainerPart<IOleObject> {
public:
    OleObject(IUnknown* identity, ContainerState& state, InPlaceActivation& activation,
              Notifications& notifications)
        : ContainerPart(identity),
          state_(state),
          activation_(activation),
          notifications_(notifications) {}

    // Recompose on resize, cannot link inside, inside-out, activate when visible, set client site
    // first.
    static constexpr DWORD kMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                         OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                         OLEMISC_SETCLIENTSITEFIRST;

    STDMETHODIMP SetClientSite(IOleClientSite* site) override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) override;
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP Close(DWORD saveOption) override;
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject** data) override;
    STDMETHODIMP DoVerb(LONG verb, MSG* message, IOleClientSite* activeSite, LONG index,
                        HWND parent, LPCRECT position) override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) override;
    STDMETHODIMP Update() override { return S_OK; }
    STDMETHODIMP IsUpToDate() override { return S_OK; }
    STDMETHODIMP GetUserClassID(CLSID* clsid) override;
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* type) override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* connection) override;
    STDMETHODIMP Unadvise(DWORD connection) override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** connections) override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
    STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

private:
    ContainerState& state_;
    InPlaceActivation& activation_;
    Notifications& notifications_;
};

}  // namespace mavrin2::server
