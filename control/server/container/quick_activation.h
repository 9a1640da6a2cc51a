#pragma once

#include "control/server/container/container_part.h"

namespace mavrin2::server {

// Connects a container and the control in one call. It uses the control's other interfaces, as a
// container would one by one.
class QuickActivation final : public ContainerPart<IQuickActivate> {
public:
    using ContainerPart::ContainerPart;

    STDMETHODIMP QuickActivate(QACONTAINER* container, QACONTROL* control) override;
    STDMETHODIMP SetContentExtent(SIZEL* size) override;
    STDMETHODIMP GetContentExtent(SIZEL* size) override;

private:
    template <class Interface>
    automation::ComPtr<Interface> Own() const;
    void Connect(const IID& outgoing, IUnknown* sink, DWORD* cookie) const;
};

}  // namespace mavrin2::server
