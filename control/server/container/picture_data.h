#pragma once

#include "control/server/container/container_part.h"
#include "control/server/container/in_place_activation.h"

namespace mavrin2::server {

// The control's picture as data: a bitmap of the control's extent.
class PictureData final : public ContainerPart<IDataObject> {
public:
    PictureData(IUnknown* identity, ContainerState& state, InPlaceActivation& activation)
        : ContainerPart(identity), state_(state), activation_(activation) {}

    STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) override;
    STDMETHODIMP GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    STDMETHODIMP QueryGetData(FORMATETC* format) override;
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) override;
    STDMETHODIMP SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override;
    // Who wants to know of another picture connects a sink to the view object.
    STDMETHODIMP DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override {
        return OLE_E_ADVISENOTSUPPORTED;
    }
    STDMETHODIMP DUnadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA** connections) override;

private:
    ContainerState& state_;
    InPlaceActivation& activation_;
};

}  // namespace mavrin2::server
