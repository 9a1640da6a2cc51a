#pragma once

#include "tests/control/linux/recording_container.h"
#include "tests/support/control_world.h"

namespace mavrin2::tests {

// A control that is active in a container's window.
struct WindowWorld : ControlWorld {
    WindowWorld() = default;
    WindowWorld(const WindowWorld&) = delete;
    WindowWorld& operator=(const WindowWorld&) = delete;
    ~WindowWorld() { End(); }

    RecordingContainer Container;

    // Activates the control in a window of that size and paints it.
    void OpenWindow(int width, int height) {
        Container.Window = std::make_unique<platform::OffscreenWindow>(width, height);
        Container.Place = Container.Clip = {0, 0, width, height};
        const auto object = Control.As<IOleObject>();
        object->SetClientSite(Container.Site());
        object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
        Paint();
    }
    // Not painted yet.
    void ResizeWindow(int width, int height) {
        if (!Container.Window) return;
        Container.Window->Resize(width, height);
        Container.Place = Container.Clip = {0, 0, width, height};
        if (const auto object = Control.As<IOleInPlaceObject>())
            object->SetObjectRects(&Container.Place, &Container.Clip);
    }
    void CloseWindow() {
        if (const auto object = Control.As<IOleObject>()) object->Close(OLECLOSE_NOSAVE);
    }
    bool Painting() const { return painting_ > 0; }
    // Takes the control's window along. A window that is being painted stays.
    void DestroyWindow() {
        if (!painting_) Container.Window.reset();
    }
    std::vector<std::uint32_t> Paint() {
        if (!Container.Window) return {};
        ++painting_;
        const platform::Pixels pixels = Container.Window->Update();
        --painting_;
        return {pixels.Data,
                pixels.Data + static_cast<std::ptrdiff_t>(pixels.Width) * pixels.Height};
    }

private:
    int painting_ = 0;
};

}  // namespace mavrin2::tests
