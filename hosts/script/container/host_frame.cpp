#include "hosts/script/container/host_frame.h"

namespace mavrin2::script {

STDMETHODIMP HostFrame::QueryInterface(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!IsEqualGUID(iid, IID_IUnknown) && !IsEqualGUID(iid, IID_IOleWindow) &&
        !IsEqualGUID(iid, IID_IOleInPlaceUIWindow) && !IsEqualGUID(iid, IID_IOleInPlaceFrame))
        return E_NOINTERFACE;
    AddRef();
    *object = static_cast<IOleInPlaceFrame*>(this);
    return S_OK;
}

STDMETHODIMP_(ULONG) HostFrame::Release() {
    const ULONG left = --count_;
    if (left == 0) delete this;
    return left;
}

STDMETHODIMP HostFrame::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = hosted_->Window;
    return *window ? S_OK : E_FAIL;
}

}  // namespace mavrin2::script
