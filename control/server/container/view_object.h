#pragma once

#include "control/server/container/container_part.h"
#include "control/server/container/in_place_activation.h"
#include "control/server/container/notifications.h"

namespace mavrin2::server {

// The control's picture, drawn wherever a container wants it.
class ViewObject final : public ContainerPart<IViewObjectEx> {
public:
    ViewObject(IUnknown* identity, ContainerState& state, InPlaceActivation& activation,
               Notifications& notifications)
        : ContainerPart(identity),
          state_(state),
          activation_(activation),
          notifications_(notifications) {}

    STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                      HDC deviceContext, HDC target, LPCRECTL bounds, LPCRECTL windowBounds,
                      BOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR), ULONG_PTR goOnArgument) override;
    STDMETHODIMP GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                             LOGPALETTE** colors) override;
    STDMETHODIMP Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP Unfreeze(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, SIZEL* size) override;
    STDMETHODIMP GetRect(DWORD, RECTL*) override { return E_NOTIMPL; }
    STDMETHODIMP GetViewStatus(DWORD* status) override;
    STDMETHODIMP QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT place, LONG closeHint,
                               DWORD* result) override;
    STDMETHODIMP QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT place, LONG closeHint,
                              DWORD* result) override;
    STDMETHODIMP GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device,
                                  HDC deviceContext, DVEXTENTINFO* info, SIZEL* size) override;

private:
    ContainerState& state_;
    InPlaceActivation& activation_;
    Notifications& notifications_;
};

}  // namespace mavrin2::server
