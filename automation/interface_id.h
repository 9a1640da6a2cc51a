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
MAVRIN2_SYSTEM_INTERFACE(IPersist)
MAVRIN2_SYSTEM_INTERFACE(IPersistStreamInit)
MAVRIN2_SYSTEM_INTERFACE(IPersistStorage)
MAVRIN2_SYSTEM_INTERFACE(IStream)
MAVRIN2_SYSTEM_INTERFACE(IStorage)
MAVRIN2_SYSTEM_INTERFACE(IAdviseSink)
MAVRIN2_SYSTEM_INTERFACE(IAdviseSinkEx)
MAVRIN2_SYSTEM_INTERFACE(IDataObject)
MAVRIN2_SYSTEM_INTERFACE(IEnumFORMATETC)
MAVRIN2_SYSTEM_INTERFACE(IEnumSTATDATA)
MAVRIN2_SYSTEM_INTERFACE(IEnumOLEVERB)
MAVRIN2_SYSTEM_INTERFACE(IOleObject)
MAVRIN2_SYSTEM_INTERFACE(IOleContainer)
MAVRIN2_SYSTEM_INTERFACE(IOleClientSite)
MAVRIN2_SYSTEM_INTERFACE(IViewObject)
MAVRIN2_SYSTEM_INTERFACE(IViewObject2)
MAVRIN2_SYSTEM_INTERFACE(IViewObjectEx)
MAVRIN2_SYSTEM_INTERFACE(IOleWindow)
MAVRIN2_SYSTEM_INTERFACE(IOleInPlaceObject)
MAVRIN2_SYSTEM_INTERFACE(IOleInPlaceObjectWindowless)
MAVRIN2_SYSTEM_INTERFACE(IOleInPlaceUIWindow)
MAVRIN2_SYSTEM_INTERFACE(IOleInPlaceFrame)
MAVRIN2_SYSTEM_INTERFACE(IOleInPlaceActiveObject)
MAVRIN2_SYSTEM_INTERFACE(IOleInPlaceSite)
MAVRIN2_SYSTEM_INTERFACE(IOleControl)
MAVRIN2_SYSTEM_INTERFACE(IOleControlSite)
MAVRIN2_SYSTEM_INTERFACE(ISpecifyPropertyPages)
MAVRIN2_SYSTEM_INTERFACE(IQuickActivate)

#undef MAVRIN2_SYSTEM_INTERFACE

template <class Interface>
const IID& IidOf() {
    return InterfaceId<Interface>::Get();
}

}  // namespace mavrin2::automation
