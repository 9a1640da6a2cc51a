#include "hosts/script/container/host_window.h"

#include <utility>

#include "hosts/script/late_binding/call_error.h"
#include "hosts/script/late_binding/late_binding.h"

namespace mavrin2::script {
namespace {

using automation::ComPtr;

void Check(HRESULT status) {
    if (FAILED(status)) throw CallError(status, StatusText(status));
}

// Containers state sizes in hundredths of a millimetre; the window has 96 dots per inch.
SIZEL ToHimetric(int width, int height) {
    constexpr int kPerInch = 2540;
    constexpr int kDots = 96;
    const auto convert = [](int pixels) { return (pixels * kPerInch + kDots / 2) / kDots; };
    return {convert(width), convert(height)};
}

}  // namespace

HostWindow::HostWindow(IUnknown& control, int width, int height, bool active)
    : window_(width, height), hosted_(std::make_shared<HostedControl>()), active_(active) {
    const ComPtr<IUnknown> unknown(&control);
    object_ = unknown.As<IOleObject>();
    view_ = unknown.As<IViewObject>();
    const auto inPlace = unknown.As<IOleInPlaceObject>();
    if (!object_ || !view_ || !inPlace)
        throw CallError(E_NOINTERFACE, "The object cannot be shown in a window.");
    ComPtr<IOleClientSite> other;
    Check(object_->GetClientSite(other.Put()));
    if (other) throw CallError(E_FAIL, "The object is in a window already.");

    *hosted_ = {&window_, width, height, inPlace, true};
    try {
        ShowControl();
    } catch (...) {
        Close();
        throw;
    }
}

void HostWindow::ShowControl() {
    const auto site = ComPtr<ControlSite>::Adopt(new ControlSite(hosted_));
    Check(object_->SetClientSite(site.Get()));
    SIZEL extent = ToHimetric(hosted_->Width, hosted_->Height);
    Check(object_->SetExtent(DVASPECT_CONTENT, &extent));
    Check(view_->SetAdvise(DVASPECT_CONTENT, 0, site.Get()));
    if (!active_) return;
    const RECT area = hosted_->ClientArea();
    Check(object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site.Get(), 0, &window_, &area));
}

void HostWindow::Resize(int width, int height) {
    if (!object_) throw CallError(E_UNEXPECTED, "The window is closed.");
    window_.Resize(width, height);
    hosted_->Width = width;
    hosted_->Height = height;
    hosted_->PictureChanged = true;
    const auto object = object_;
    const auto hosted = hosted_;
    SIZEL extent = ToHimetric(width, height);
    Check(object->SetExtent(DVASPECT_CONTENT, &extent));
    // Not every control asks for its new place.
    const auto inPlace = hosted->InPlace;
    const RECT area = hosted->ClientArea();
    if (active_ && inPlace) Check(inPlace->SetObjectRects(&area, &area));
}

platform::Pixels HostWindow::Update() {
    if (!object_) throw CallError(E_UNEXPECTED, "The window is closed.");
    window_.Update();
    if (!active_ && std::exchange(hosted_->PictureChanged, false)) Draw();
    // Painting runs a script's handlers, which may change the window.
    return window_.Update();
}

void HostWindow::Draw() {
    const auto view = view_;
    if (!view) return;
    const auto target = window_.Target();
    const RECTL bounds = hosted_->ClientArea();
    Check(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, target.get(), &bounds,
                     nullptr, nullptr, 0));
}

void HostWindow::Close() {
    const auto object = std::exchange(object_, {});
    const auto view = std::exchange(view_, {});
    if (!object) return;
    object->Close(OLECLOSE_NOSAVE);
    view->SetAdvise(DVASPECT_CONTENT, 0, nullptr);
    object->SetClientSite(nullptr);
    hosted_->Window = nullptr;
    hosted_->InPlace.Reset();
}

}  // namespace mavrin2::script
