#include "control/server/container/in_place_object.h"

namespace mavrin2::server {
namespace {

HRESULT GiveWindow(const InPlaceActivation& activation, HWND* window) {
    if (!window) return E_POINTER;
    *window = activation.Window();
    return *window ? S_OK : E_FAIL;
}

}  // namespace

STDMETHODIMP InPlaceObject::GetWindow(HWND* window) {
    return GiveWindow(activation_, window);
}

STDMETHODIMP InPlaceObject::InPlaceDeactivate() {
    return Run([&] { return activation_.Deactivate(); });
}

STDMETHODIMP InPlaceObject::UIDeactivate() {
    return Run([&] { return activation_.DeactivateForUser(); });
}

STDMETHODIMP InPlaceObject::SetObjectRects(LPCRECT position, LPCRECT clip) {
    return Run([&]() -> HRESULT {
        if (!position || !clip) return E_POINTER;
        activation_.Move(*position, *clip);
        return S_OK;
    });
}

STDMETHODIMP InPlaceObject::GetDropTarget(IDropTarget** target) {
    if (target) *target = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP InPlaceActiveObject::GetWindow(HWND* window) {
    return GiveWindow(activation_, window);
}

}  // namespace mavrin2::server
