#include "hosts/container/control_site.h"

#include "automation/guarded.h"
#include "hosts/container/host_frame.h"

namespace mavrin2::container {

STDMETHODIMP ControlSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    if (moniker) *moniker = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::GetContainer(IOleContainer** container) {
    if (container) *container = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP ControlSite::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = place_->Window;
    return *window ? S_OK : E_FAIL;
}

STDMETHODIMP ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                           RECT* position, RECT* clip, OLEINPLACEFRAMEINFO* info) {
    return automation::Guarded([&]() -> HRESULT {
        if (!frame || !document || !position || !clip || !info) return E_POINTER;
        *frame = nullptr;
        *document = nullptr;  // the window is the frame's own
        if (!place_->Window) return E_FAIL;
        *position = *clip = place_->ClientArea();
        info->fMDIApp = FALSE;
        info->hwndFrame = place_->Window;
        info->haccel = nullptr;
        info->cAccelEntries = 0;
        *frame = automation::MakeCounted<HostFrame>(place_).Detach();
        return S_OK;
    });
}

STDMETHODIMP ControlSite::OnPosRectChange(LPCRECT position) {
    if (!position) return E_POINTER;
    // The control fills the window, whatever it would like.
    const auto inPlace = place_->InPlace;
    const RECT area = place_->ClientArea();
    return inPlace ? inPlace->SetObjectRects(&area, &area) : E_FAIL;
}

}  // namespace mavrin2::container
