#pragma once

#include <memory>

#include "automation/com_ptr.h"
#include "automation/counted.h"
#include "platform/window.h"

namespace mavrin2::container {

// What a window and the control's sites in it share; the control may hold its site longer than the
// window lives.
struct ControlPlace {
    platform::Window* Window = nullptr;  // null once it is closed
    int Width = 0;
    int Height = 0;
    automation::ComPtr<IOleInPlaceObject> InPlace;
    bool PictureChanged = true;  // since it was drawn last

    RECT ClientArea() const { return {0, 0, Width, Height}; }
};

// The place of one control in a window, as the control sees it: its client site, its in-place site
// and the sink for its notifications, one object.
class ControlSite final : public automation::Counted<IOleClientSite, IOleInPlaceSite, IAdviseSink> {
public:
    explicit ControlSite(std::shared_ptr<ControlPlace> place) : place_(std::move(place)) {}

    STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return place_->Window ? S_OK : S_FALSE; }
    STDMETHODIMP OnInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnUIActivate() override { return S_OK; }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  RECT* position, RECT* clip, OLEINPLACEFRAMEINFO* info) override;
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnInPlaceDeactivate() override { return S_OK; }
    STDMETHODIMP DiscardUndoState() override { return S_OK; }
    STDMETHODIMP DeactivateAndUndo() override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT position) override;

    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { place_->PictureChanged = true; }
    STDMETHODIMP_(void) OnRename(IMoniker*) override {}
    STDMETHODIMP_(void) OnSave() override {}
    STDMETHODIMP_(void) OnClose() override {}

private:
    void* FindMore(REFIID iid) override {
        return IsEqualGUID(iid, IID_IOleWindow) ? static_cast<IOleWindow*>(this) : nullptr;
    }

    std::shared_ptr<ControlPlace> place_;
};

}  // namespace mavrin2::container
