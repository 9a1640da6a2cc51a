#pragma once

#include <memory>

#include "automation/counted.h"
#include "platform/offscreen_window.h"

namespace mavrin2::script {

// What a window and the control's sites in it share; the control may hold its site longer than the
// window lives.
struct HostedControl {
    platform::OffscreenWindow* Window = nullptr;  // null once it is closed
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
    explicit ControlSite(std::shared_ptr<HostedControl> hosted) : hosted_(std::move(hosted)) {}

    STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return hosted_->Window ? S_OK : S_FALSE; }
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
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { hosted_->PictureChanged = true; }
    STDMETHODIMP_(void) OnRename(IMoniker*) override {}
    STDMETHODIMP_(void) OnSave() override {}
    STDMETHODIMP_(void) OnClose() override {}

private:
    void* FindMore(REFIID iid) override {
        return IsEqualGUID(iid, IID_IOleWindow) ? static_cast<IOleWindow*>(this) : nullptr;
    }

    std::shared_ptr<HostedControl> hosted_;
};

}  // namespace mavrin2::script
