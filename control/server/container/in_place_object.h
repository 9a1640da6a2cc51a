#pragma once

#include "control/server/container/container_part.h"
#include "control/server/container/in_place_activation.h"

namespace mavrin2::server {

// What a container does with the control in its window. The windowless forms are answered for, but
// the control is never active without a window.
class InPlaceObject final : public ContainerPart<IOleInPlaceObjectWindowless> {
public:
    InPlaceObject(IUnknown* identity, InPlaceActivation& activation)
        : ContainerPart(identity), activation_(activation) {}

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP InPlaceDeactivate() override;
    STDMETHODIMP UIDeactivate() override;
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) override;
    STDMETHODIMP ReactivateAndUndo() override { return INPLACE_E_NOTUNDOABLE; }
    STDMETHODIMP OnWindowMessage(UINT, WPARAM, LPARAM, LRESULT*) override { return S_FALSE; }
    STDMETHODIMP GetDropTarget(IDropTarget** target) override;

private:
    InPlaceActivation& activation_;
};

// Calls of the frame to the control that the user works with.
class InPlaceActiveObject final : public ContainerPart<IOleInPlaceActiveObject> {
public:
    InPlaceActiveObject(IUnknown* identity, InPlaceActivation& activation)
        : ContainerPart(identity), activation_(activation) {}

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*) override { return S_FALSE; }
    STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnDocWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }

private:
    InPlaceActivation& activation_;
};

}  // namespace mavrin2::server
