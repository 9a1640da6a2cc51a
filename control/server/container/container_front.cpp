#include "control/server/container/container_front.h"

namespace mavrin2::server {

ContainerFront::ContainerFront(IUnknown* identity)
    : activation_(identity, state_),
      view_(identity, state_, activation_, notifications_),
      inPlace_(identity, activation_),
      activeObject_(identity, activation_),
      control_(identity),
      object_(identity, state_, activation_, notifications_),
      stream_(identity, state_),
      pages_(identity),
      quick_(identity),
      storage_(identity, stream_, notifications_),
      data_(identity, state_, activation_) {}

void ContainerFront::Detach() {
    automation::Guarded([&] {
        activation_.Deactivate();
        notifications_.DisconnectAll();
        state_.Site.Reset();
    });
    state_.Paint = nullptr;
    state_.Mouse = {};
}

void* ContainerFront::Find(REFIID iid) {
    const struct {
        const IID& Id;
        void* Part;
    } parts[] = {
        {IID_IViewObjectEx, static_cast<IViewObjectEx*>(&view_)},
        {IID_IViewObject2, static_cast<IViewObject2*>(&view_)},
        {IID_IViewObject, static_cast<IViewObject*>(&view_)},
        {IID_IOleInPlaceObjectWindowless, static_cast<IOleInPlaceObjectWindowless*>(&inPlace_)},
        {IID_IOleInPlaceObject, static_cast<IOleInPlaceObject*>(&inPlace_)},
        {IID_IOleWindow, static_cast<IOleWindow*>(&inPlace_)},
        {IID_IOleInPlaceActiveObject, static_cast<IOleInPlaceActiveObject*>(&activeObject_)},
        {IID_IOleControl, static_cast<IOleControl*>(&control_)},
        {IID_IOleObject, static_cast<IOleObject*>(&object_)},
        {IID_IPersistStreamInit, static_cast<IPersistStreamInit*>(&stream_)},
        {IID_IPersist, static_cast<IPersist*>(&stream_)},
        {IID_ISpecifyPropertyPages, static_cast<ISpecifyPropertyPages*>(&pages_)},
        {IID_IQuickActivate, static_cast<IQuickActivate*>(&quick_)},
        {IID_IPersistStorage, static_cast<IPersistStorage*>(&storage_)},
        {IID_IDataObject, static_cast<IDataObject*>(&data_)},
    };
    for (const auto& part : parts)
        if (IsEqualGUID(iid, part.Id)) return part.Part;
    return nullptr;
}

}  // namespace mavrin2::server
