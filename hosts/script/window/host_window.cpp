#include "hosts/script/window/host_window.h"

#include "hosts/binding/call_error.h"

namespace mavrin2::script {

void HostWindow::CheckOpen() const {
    if (!IsOpen()) throw binding::CallError(E_UNEXPECTED, "The window is closed.");
}

void HostWindow::Resize(int width, int height) {
    CheckOpen();
    window_.Resize(width, height);
    control_.Resize(width, height);
}

platform::Pixels HostWindow::Update() {
    CheckOpen();
    window_.Update();
    if (!control_.IsActive() && control_.TakePictureChange()) control_.Draw(*window_.Target());
    // Painting runs a script's handlers, which may change the window.
    return window_.Update();
}

void HostWindow::SendMouse(platform::MouseEvent event) {
    CheckOpen();
    const int button = static_cast<int>(event.Button);
    if (event.Action == platform::MouseAction::Up)
        held_ &= ~button;
    else
        held_ |= button;
    event.Held = held_;
    window_.Send(event);
}

}  // namespace mavrin2::script
