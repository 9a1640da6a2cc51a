#pragma once

#include "control/server/container/container_part.h"

namespace mavrin2::server {

// What a form requires of a control beyond embedding. The control offers no keys
// and takes nothing from its surroundings.
class FormControl final : public ContainerPart<IOleControl> {
public:
    using ContainerPart::ContainerPart;

    STDMETHODIMP GetControlInfo(CONTROLINFO*) override { return E_NOTIMPL; }
    STDMETHODIMP OnMnemonic(MSG*) override { return E_NOTIMPL; }
    STDMETHODIMP OnAmbientPropertyChange(DISPID) override { return S_OK; }
    STDMETHODIMP FreezeEvents(BOOL) override { return S_OK; }
};

// There are none.
class PropertyPages final : public ContainerPart<ISpecifyPropertyPages> {
public:
    using ContainerPart::ContainerPart;

    STDMETHODIMP GetPages(CAUUID* pages) override;
};

}  // namespace mavrin2::server
