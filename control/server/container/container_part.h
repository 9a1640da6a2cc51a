#pragma once

#include "automation/object.h"
#include "control/server/container/container_state.h"

namespace mavrin2::server {

// An interface that the control answers a container for.
template <class Interface>
class ContainerPart : public automation::InterfacePart<Interface> {
public:
    using automation::InterfacePart<Interface>::InterfacePart;

protected:
    ~ContainerPart() = default;

    // Runs the body of a method that may run a container's code, which may let the control go.
    template <class Body>
    HRESULT Run(Body&& body) {
        const automation::ComPtr<IUnknown> held(this->Identity());
        return automation::Guarded(std::forward<Body>(body));
    }
};

}  // namespace mavrin2::server
