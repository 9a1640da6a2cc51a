#include "platform/control_window.h"

#include "platform/window.h"

namespace mavrin2::platform {
namespace {

// The host's target, which stays the host's.
class BorrowedTarget final : public DrawingTarget {
public:
    explicit BorrowedTarget(DrawingTarget& target) : target_(target) {}

    void Blit(int x, int y, const Pixels& pixels) override { target_.Blit(x, y, pixels); }
    void DrawVertical(int x, int top, int bottom, std::uint32_t color) override {
        target_.DrawVertical(x, top, bottom, color);
    }
    RECT Clip() const override { return target_.Clip(); }

private:
    DrawingTarget& target_;
};

}  // namespace

std::unique_ptr<ControlWindow> NewControlWindow(HWND parent, const RECT& place, const RECT& clip,
                                                WindowHandler& handler) {
    return parent ? parent->NewChild(place, clip, handler) : nullptr;
}

SIZE ScreenResolution() {
    return {96, 96};
}

std::unique_ptr<DrawingTarget> TargetOf(HDC handle) {
    return handle ? std::make_unique<BorrowedTarget>(*handle) : nullptr;
}

RECT PixelsOf(HDC, const RECTL& bounds) {
    return bounds;
}

}  // namespace mavrin2::platform
