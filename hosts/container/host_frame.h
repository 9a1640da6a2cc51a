#pragma once

#include <memory>

#include "hosts/container/control_site.h"

namespace mavrin2::container {

// The frame around the window, as an active control sees it: one without menus, tools and keys.
class HostFrame final : public automation::Counted<IOleInPlaceFrame> {
public:
    explicit HostFrame(std::shared_ptr<ControlPlace> place) : place_(std::move(place)) {}

    STDMETHODIMP GetWindow(HWND* window) override {
        if (!window) return E_POINTER;
        *window = place_->Window;
        return *window ? S_OK : E_FAIL;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP GetBorder(RECT*) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) override {
        return widths ? INPLACE_E_NOTOOLSPACE : S_OK;
    }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP InsertMenus(HMENU, OLEMENUGROUPWIDTHS*) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
    STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return E_NOTIMPL; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(MSG*, WORD) override { return S_FALSE; }

private:
    void* FindMore(REFIID iid) override {
        const bool extended =
            IsEqualGUID(iid, IID_IOleWindow) || IsEqualGUID(iid, IID_IOleInPlaceUIWindow);
        return extended ? static_cast<IOleInPlaceFrame*>(this) : nullptr;
    }

    std::shared_ptr<ControlPlace> place_;
};

}  // namespace mavrin2::container
