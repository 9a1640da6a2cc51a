#include "hosts/desktop/canvas/control_area.h"

#include <algorithm>
#include <utility>

#include "platform/pixel_target.h"

namespace mavrin2::desktop {
namespace {

RECT Common(const RECT& one, const RECT& other) {
    return {std::max(one.left, other.left), std::max(one.top, other.top),
            std::min(one.right, other.right), std::min(one.bottom, other.bottom)};
}

platform::Pixels PixelsOf(QImage& image) {
    constexpr int kBytes = 4;
    return {reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
            static_cast<int>(image.bytesPerLine()) / kBytes};
}

// Keeps the pixels: drawing runs a host's code, which may resize or close the window.
class ImageTarget final : public platform::PixelTarget {
public:
    ImageTarget(std::shared_ptr<QImage> image, POINT origin, const RECT& clip)
        : PixelTarget(PixelsOf(*image), origin, clip), image_(std::move(image)) {}

private:
    std::shared_ptr<QImage> image_;
};

}  // namespace

ControlArea::~ControlArea() {
    if (canvas_) canvas_->Leave();
}

void ControlArea::Move(const RECT& place, const RECT& clip) {
    place_ = place;
    clip_ = clip;
    Invalidate();
}

void ControlArea::Show(bool visible) {
    visible_ = visible;
    Invalidate();
}

void ControlArea::Invalidate() {
    invalid_ = true;
    if (canvas_) canvas_->Update();
}

bool ControlArea::DrawNow(const std::function<void(platform::DrawingTarget& target)>& draw) {
    if (!canvas_) return false;
    draw(*Target());
    canvas_->Update();
    return true;
}

void ControlArea::SetPointer(const platform::Pointer& pointer) {
    if (canvas_) canvas_->ShowPointer(pointer);
}

void ControlArea::SetTip(const std::string& text, int, int) {
    if (canvas_) canvas_->ShowTip(text);
}

void ControlArea::PaintIfInvalid() {
    if (!visible_ || !std::exchange(invalid_, false)) return;
    const auto target = Target();
    handler_.Paint(*target, static_cast<int>(std::max<LONG>(place_.right - place_.left, 0)),
                   static_cast<int>(std::max<LONG>(place_.bottom - place_.top, 0)));
}

void ControlArea::Send(platform::MouseEvent event) {
    if (!captured_ && !IsAt(event.X, event.Y)) return;
    event.X -= static_cast<int>(place_.left);
    event.Y -= static_cast<int>(place_.top);
    handler_.Mouse(event);
}

void ControlArea::LoseCapture() {
    if (std::exchange(captured_, false)) handler_.CaptureLost();
}

void ControlArea::Orphan() {
    canvas_ = nullptr;
    handler_.Destroyed();
}

std::unique_ptr<platform::DrawingTarget> ControlArea::Target() const {
    const RECT nothing = {0, 0, 0, 0};
    return std::make_unique<ImageTarget>(canvas_->Image(), POINT{place_.left, place_.top},
                                         visible_ ? Common(place_, clip_) : nothing);
}

bool ControlArea::IsAt(int x, int y) const {
    const RECT seen = Common(place_, clip_);
    return visible_ && x >= seen.left && x < seen.right && y >= seen.top && y < seen.bottom;
}

}  // namespace mavrin2::desktop
