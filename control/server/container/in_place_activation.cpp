#include "control/server/container/in_place_activation.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "automation/guarded.h"
#include "control/server/container/measures.h"

namespace mavrin2::server {
namespace {

using automation::ComPtr;

// `first` and a length, without leaving the numbers there are.
LONG EndOf(LONG first, LONG length) {
    const std::int64_t end = std::int64_t{first} + length;
    return static_cast<LONG>(std::min<std::int64_t>(end, std::numeric_limits<LONG>::max()));
}

// By value: either call may have the caller's forgotten.
// NOLINTBEGIN(performance-unnecessary-value-param): the copies are what keeps them alive.
void SetActiveObject(ComPtr<IOleInPlaceFrame> frame, ComPtr<IOleInPlaceUIWindow> document,
                     IOleInPlaceActiveObject* object) {
    if (frame) frame->SetActiveObject(object, nullptr);
    if (document) document->SetActiveObject(object, nullptr);
}
// NOLINTEND(performance-unnecessary-value-param)

}  // namespace

HRESULT InPlaceActivation::Activate(bool forUser) {
    const ComPtr<IOleClientSite> site = state_.Site;
    if (!site) return OLEOBJ_S_CANNOT_DOVERB_NOW;
    if (!active_) {
        if (const HRESULT status = Enter(); FAILED(status)) return status;
    } else if (window_) {
        window_->Show(true);
    }
    const unsigned turn = turn_;
    if (forUser) {
        if (const HRESULT status = EnterForUser(); FAILED(status)) return status;
    }
    if (Overtaken(turn)) return E_ABORT;
    site->ShowObject();
    return Overtaken(turn) ? E_ABORT : S_OK;
}

HRESULT InPlaceActivation::Enter() {
    const unsigned turn = ++turn_;
    ComPtr<IOleInPlaceSite> site = state_.Site.As<IOleInPlaceSite>();
    if (!site) return E_NOINTERFACE;
    if (const HRESULT status = site->CanInPlaceActivate(); status != S_OK)
        return FAILED(status) ? status : E_FAIL;
    if (Overtaken(turn)) return E_ABORT;
    // Active from here on, so that a container that changes its mind hears of the end as well.
    active_ = true;
    site_ = site;
    if (const HRESULT status = site->OnInPlaceActivate(); FAILED(status)) {
        if (!Overtaken(turn)) {
            active_ = false;
            site_.Reset();
        }
        return status;
    }
    if (Overtaken(turn)) return E_ABORT;
    const HRESULT status = MakeWindow(turn);
    if (FAILED(status) && !Overtaken(turn)) Deactivate();
    return status;
}

HRESULT InPlaceActivation::MakeWindow(unsigned turn) {
    const ComPtr<IOleInPlaceSite> site = site_;
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    RECT place = {};
    RECT clip = {};
    OLEINPLACEFRAMEINFO information = {};
    information.cb = sizeof(information);
    if (const HRESULT status =
            site->GetWindowContext(frame.Put(), document.Put(), &place, &clip, &information);
        FAILED(status))
        return status;
    if (Overtaken(turn)) return E_ABORT;
    frame_ = std::move(frame);
    document_ = std::move(document);
    place_ = place;
    // Asked last, so that the container has no occasion to destroy it before it is used.
    HWND parent = nullptr;
    if (const HRESULT status = site->GetWindow(&parent); FAILED(status)) return status;
    if (Overtaken(turn)) return E_ABORT;
    auto window = platform::NewControlWindow(parent, place, clip, *this);
    if (!window) return E_FAIL;
    if (Overtaken(turn)) return E_ABORT;
    window->SetPointer(pointer_);
    window_ = std::move(window);
    return S_OK;
}

HRESULT InPlaceActivation::EnterForUser() {
    if (forUser_) return S_OK;
    const unsigned turn = turn_;
    const ComPtr<IOleInPlaceSite> site = site_;
    forUser_ = true;
    if (const HRESULT status = site->OnUIActivate(); FAILED(status)) {
        if (!Overtaken(turn)) forUser_ = false;
        return status;
    }
    if (Overtaken(turn) || !forUser_) return E_ABORT;
    const auto frame = frame_;
    const auto document = document_;
    const auto object = ComPtr<IUnknown>(identity_).As<IOleInPlaceActiveObject>();
    SetActiveObject(frame, document, object.Get());
    // No toolbars around the container's window.
    if (frame) frame->SetBorderSpace(nullptr);
    if (document) document->SetBorderSpace(nullptr);
    return S_OK;
}

HRESULT InPlaceActivation::DeactivateForUser() {
    if (!std::exchange(forUser_, false)) return S_OK;
    const auto site = site_;
    SetActiveObject(frame_, document_, nullptr);
    site->OnUIDeactivate(FALSE);
    return S_OK;
}

HRESULT InPlaceActivation::Deactivate() {
    ++turn_;
    if (!active_) return S_OK;
    DeactivateForUser();
    // The container may have come first.
    if (!std::exchange(active_, false)) return S_OK;
    const auto site = std::exchange(site_, {});
    const auto frame = std::exchange(frame_, {});
    const auto document = std::exchange(document_, {});
    std::exchange(window_, nullptr).reset();
    site->OnInPlaceDeactivate();
    return S_OK;
}

void InPlaceActivation::Hide() {
    DeactivateForUser();
    if (window_) window_->Show(false);
}

void InPlaceActivation::Move(const RECT& place, const RECT& clip) {
    if (!active_) return;
    place_ = place;
    if (window_) window_->Move(place, clip);
}

HRESULT InPlaceActivation::RequestPlace() {
    if (!active_) return S_OK;
    const auto site = site_;
    const SIZE size = ToPixels(state_.Extent);
    const RECT place = {place_.left, place_.top, EndOf(place_.left, size.cx),
                        EndOf(place_.top, size.cy)};
    return site->OnPosRectChange(&place);
}

bool InPlaceActivation::DrawOnWindow(
    const std::function<void(platform::DrawingTarget& window)>& draw) {
    return window_ && window_->DrawNow(draw);
}

void InPlaceActivation::SetTip(const std::string& text, int x, int y) {
    if (window_) window_->SetTip(text, x, y);
}

void InPlaceActivation::RepaintWindow() {
    if (window_) window_->Invalidate();
}

void InPlaceActivation::CaptureMouse(bool capture) {
    if (window_) window_->CaptureMouse(capture);
}

void InPlaceActivation::SetPointer(const platform::Pointer& pointer) {
    pointer_ = pointer;
    if (window_) window_->SetPointer(pointer);
}

void InPlaceActivation::Paint(platform::DrawingTarget& target, int width, int height) {
    const ComPtr<IUnknown> held(identity_);
    automation::Guarded([&] {
        // All of it, since what the control changes later it draws without asking for rows.
        if (state_.Paint) state_.Paint(target, PictureBounds({0, 0, width, height}), {0, height});
    });
}

void InPlaceActivation::Mouse(const platform::MouseEvent& event) {
    const ComPtr<IUnknown> held(identity_);
    automation::Guarded([&] {
        if (state_.Mouse.Event) state_.Mouse.Event(event);
    });
}

void InPlaceActivation::CaptureLost() {
    const ComPtr<IUnknown> held(identity_);
    automation::Guarded([&] {
        if (state_.Mouse.CaptureLost) state_.Mouse.CaptureLost();
    });
}

void InPlaceActivation::Destroyed() {
    std::exchange(window_, nullptr).reset();
}

}  // namespace mavrin2::server
