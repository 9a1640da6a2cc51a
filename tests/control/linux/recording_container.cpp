#include "tests/control/linux/recording_container.h"

namespace mavrin2::tests {

HRESULT RecordingContainer::Note(const std::string& name) {
    calls_ += (calls_.empty() ? "" : " ") + name;
    if (name == hooked_) {
        hooked_.clear();
        std::exchange(act_, {})();
    }
    return name == Failing ? FailingStatus : S_OK;
}

STDMETHODIMP RecordingContainer::QueryInterface(REFIID iid, void** object) {
    *object = nullptr;
    if (IsEqualGUID(iid, IID_IUnknown) || IsEqualGUID(iid, IID_IOleClientSite))
        *object = static_cast<IOleClientSite*>(this);
    else if (IsEqualGUID(iid, IID_IOleInPlaceSite) && HasInPlaceSite)
        *object = static_cast<IOleInPlaceSite*>(this);
    if (*object) AddRef();
    return *object ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP RecordingContainer::GetWindow(HWND* window) {
    const HRESULT status = Note("GetWindow");
    *window = Window.get();
    return status;
}

STDMETHODIMP RecordingContainer::OnInPlaceActivate() {
    const HRESULT status = Note("OnInPlaceActivate");
    if (SUCCEEDED(status)) ++Activations;
    return status;
}

STDMETHODIMP RecordingContainer::OnInPlaceDeactivate() {
    --Activations;
    return Note("OnInPlaceDeactivate");
}

STDMETHODIMP RecordingContainer::GetWindowContext(IOleInPlaceFrame** frame,
                                                  IOleInPlaceUIWindow** document, RECT* position,
                                                  RECT* clip, OLEINPLACEFRAMEINFO*) {
    *frame = nullptr;
    *document = nullptr;
    if (const HRESULT status = Note("GetWindowContext"); FAILED(status)) return status;
    *frame = automation::ComPtr<IOleInPlaceFrame>(this).Detach();
    *position = Place;
    *clip = Clip;
    return S_OK;
}

}  // namespace mavrin2::tests
