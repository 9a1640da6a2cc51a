#pragma once

#include "control/server/container/form_control.h"
#include "control/server/container/in_place_object.h"
#include "control/server/container/ole_object.h"
#include "control/server/container/persistence.h"
#include "control/server/container/picture_data.h"
#include "control/server/container/quick_activation.h"
#include "control/server/container/view_object.h"
#include "control/view/display.h"

namespace mavrin2::server {

// Everything that the control answers a container for, and the view's way to the container.
class ContainerFront final : public view::Display {
public:
    // `identity` is the control as others see it, not counted.
    explicit ContainerFront(IUnknown* identity);

    // From now on there is a picture to be seen and worked with.
    void Attach(PaintPicture paint, MouseInput mouse = {}) {
        state_.Paint = std::move(paint);
        state_.Mouse = std::move(mouse);
    }
    // Leaves the container: its window, its site, its sinks.
    void Detach();

    // The interface, not counted; null when the container's interfaces do not have it.
    void* Find(REFIID iid);

    // On the window while there is one; otherwise the container's sink hears of the new picture.
    bool DrawOnWindow(const std::function<void(platform::DrawingTarget& window)>& draw) override {
        return activation_.DrawOnWindow(draw);
    }
    void RequestRepaint() override { notifications_.TellViewChanged(); }
    void CaptureMouse(bool capture) override { activation_.CaptureMouse(capture); }
    void SetPointer(const platform::Pointer& pointer) override { activation_.SetPointer(pointer); }
    void SetTip(const std::string& text, int x, int y) override { activation_.SetTip(text, x, y); }

private:
    ContainerState state_;
    Notifications notifications_;
    InPlaceActivation activation_;
    ViewObject view_;
    InPlaceObject inPlace_;
    InPlaceActiveObject activeObject_;
    FormControl control_;
    OleObject object_;
    StreamPersistence stream_;
    PropertyPages pages_;
    QuickActivation quick_;
    StoragePersistence storage_;
    PictureData data_;
};

}  // namespace mavrin2::server
