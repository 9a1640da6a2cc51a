#include "hosts/container/hosted_control.h"

#include <utility>

#include "hosts/binding/call_error.h"

namespace mavrin2::container {
namespace {

using automation::ComPtr;
using binding::CallError;

void Check(HRESULT status) {
    if (FAILED(status)) throw CallError(status, binding::StatusText(status));
}

// Containers state sizes in hundredths of a millimetre; the window has 96 dots per inch.
SIZEL ToHimetric(int width, int height) {
    constexpr int kPerInch = 2540;
    constexpr int kDots = 96;
    const auto convert = [](int pixels) { return (pixels * kPerInch + kDots / 2) / kDots; };
    return {convert(width), convert(height)};
}

}  // namespace

HostedControl::HostedControl(IUnknown& control, platform::Window& window, int width, int height,
                             bool active)
    : place_(std::make_shared<ControlPlace>()), active_(active) {
    const ComPtr<IUnknown> unknown(&control);
    object_ = unknown.As<IOleObject>();
    view_ = unknown.As<IViewObject>();
    const auto inPlace = unknown.As<IOleInPlaceObject>();
    if (!object_ || !view_ || !inPlace)
        throw CallError(E_NOINTERFACE, "The object cannot be shown in a window.");
    ComPtr<IOleClientSite> other;
    Check(object_->GetClientSite(other.Put()));
    if (other) throw CallError(E_FAIL, "The object is in a window already.");

    *place_ = {&window, width, height, inPlace, true};
    try {
        Show(window);
    } catch (...) {
        Close();
        throw;
    }
}

void HostedControl::Show(platform::Window& window) {
    const auto site = ComPtr<ControlSite>::Adopt(new ControlSite(place_));
    Check(object_->SetClientSite(site.Get()));
    SIZEL extent = ToHimetric(place_->Width, place_->Height);
    Check(object_->SetExtent(DVASPECT_CONTENT, &extent));
    Check(view_->SetAdvise(DVASPECT_CONTENT, 0, site.Get()));
    if (!active_) return;
    const RECT area = place_->ClientArea();
    Check(object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site.Get(), 0, &window, &area));
}

void HostedControl::Resize(int width, int height) {
    if (!object_) throw CallError(E_UNEXPECTED, "The window is closed.");
    place_->Width = width;
    place_->Height = height;
    place_->PictureChanged = true;
    const auto object = object_;
    const auto place = place_;
    SIZEL extent = ToHimetric(width, height);
    Check(object->SetExtent(DVASPECT_CONTENT, &extent));
    // Not every control asks for its new place.
    const auto inPlace = place->InPlace;
    const RECT area = place->ClientArea();
    if (active_ && inPlace) Check(inPlace->SetObjectRects(&area, &area));
}

bool HostedControl::TakePictureChange() {
    return std::exchange(place_->PictureChanged, false);
}

void HostedControl::Draw(platform::DrawingTarget& target) {
    const auto view = view_;
    if (!view) return;
    const RECTL bounds = place_->ClientArea();
    Check(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, &target, &bounds, nullptr,
                     nullptr, 0));
}

void HostedControl::Close() {
    const auto object = std::exchange(object_, {});
    const auto view = std::exchange(view_, {});
    if (!object) return;
    object->Close(OLECLOSE_NOSAVE);
    view->SetAdvise(DVASPECT_CONTENT, 0, nullptr);
    object->SetClientSite(nullptr);
    place_->Window = nullptr;
    place_->InPlace.Reset();
}

}  // namespace mavrin2::container
