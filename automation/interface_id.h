#pragma once

#include "platform/automation.h"

namespace mavrin2::automation {

// The identifier of an interface type. This project's own interfaces carry theirs as a static
// member `Id`; the system's are listed here.
template <class Interface>
struct InterfaceId {
    static const IID& Get() { return Interface::Id; }
};

#define MAVRIN2_SYSTEM_INTERFACE(name)                 \
    template <>                                        \
    struct InterfaceId<name> {                         \
        static const IID& Get() { return IID_##name; } \
    };

MAVRIN2_SYSTEM_INTERFACE(IUnknown)
MAVRIN2_SYSTEM_INTERFACE(IClassFactory)
MAVRIN2_SYSTEM_INTERFACE(IDispatch)
MAVRIN2_SYSTEM_INTERFACE(ITypeInfo)
MAVRIN2_SYSTEM_INTERFACE(ITypeLib)
MAVRIN2_SYSTEM_INTERFACE(IErrorInfo)
MAVRIN2_SYSTEM_INTERFACE(ICreateErrorInfo)
MAVRIN2_SYSTEM_INTERFACE(ISupportErrorInfo)
MAVRIN2_SYSTEM_INTERFACE(IConnectionPoint)
MAVRIN2_SYSTEM_INTERFACE(IConnectionPointContainer)
MAVRIN2_SYSTEM_INTERFACE(IEnumConnectionPoints)
MAVRIN2_SYSTEM_INTERFACE(IEnumConnections)
MAVRIN2_SYSTEM_INTERFACE(IProvideClassInfo)
MAVRIN2_SYSTEM_INTERFACE(IProvideClassInfo2)
MAVRIN2_SYSTEM_INTERFACE(IPropertyNotifySink)

#undef MAVRIN2_SYSTEM_INTERFACE

template <class Interface>
const IID& IidOf() {
    return InterfaceId<Interface>::Get();
}

}  // namespace mavrin2::automation
