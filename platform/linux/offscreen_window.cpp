#include "platform/offscreen_window.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

#include "platform/pixel_target.h"

namespace mavrin2::platform {
namespace {

constexpr std::uint32_t kBackground = 0xD4D0C8;

RECT Common(const RECT& one, const RECT& other) {
    return {std::max(one.left, other.left), std::max(one.top, other.top),
            std::min(one.right, other.right), std::min(one.bottom, other.bottom)};
}

int Extent(LONG first, LONG end) {
    return static_cast<int>(
        std::clamp<std::int64_t>(std::int64_t{end} - first, 0, std::numeric_limits<int>::max()));
}

}  // namespace

// The pixels of a window at one size. Drawing runs a host's code, which may resize the window or
// close it: targets keep the canvas that they draw on.
class OffscreenWindow::Canvas {
public:
    Canvas(int width, int height)
        : width_(width),
          height_(height),
          pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

    void Clear() { std::ranges::fill(pixels_, kBackground); }
    Pixels AsPixels() { return {pixels_.data(), width_, height_, width_}; }

    // Parameters as a PixelTarget has them.
    static std::unique_ptr<DrawingTarget> Target(std::shared_ptr<Canvas> canvas, POINT origin,
                                                 const RECT& clip) {
        struct CanvasTarget final : PixelTarget {
            CanvasTarget(std::shared_ptr<Canvas> canvas, POINT origin, const RECT& clip)
                : PixelTarget(canvas->AsPixels(), origin, clip), Held(std::move(canvas)) {}
            std::shared_ptr<Canvas> Held;
        };
        return std::make_unique<CanvasTarget>(std::move(canvas), origin, clip);
    }

private:
    int width_;
    int height_;
    std::vector<std::uint32_t> pixels_;
};

class OffscreenWindow::Child final : public ControlWindow, public Window {
public:
    Child(OffscreenWindow& parent, const RECT& place, const RECT& clip, WindowHandler& handler)
        : parent_(&parent), place_(place), clip_(clip), handler_(handler) {
        parent.children_.push_back(this);
    }
    ~Child() override {
        if (!parent_) return;
        parent_->uncovered_ = true;
        std::erase(parent_->children_, this);
        if (parent_->capture_ == this) parent_->capture_ = nullptr;
        if (parent_->under_ == this) parent_->under_ = nullptr;
    }

    HWND Handle() const override { return parent_ ? const_cast<Child*>(this) : nullptr; }

    void Move(const RECT& place, const RECT& clip) override {
        place_ = place;
        clip_ = clip;
        Uncover();
    }

    void Show(bool visible) override {
        visible_ = visible;
        Uncover();
    }

    void Invalidate() override { invalid_ = true; }

    bool DrawNow(const std::function<void(DrawingTarget& target)>& draw) override {
        if (!parent_) return false;
        draw(*Target());
        return true;
    }

    void CaptureMouse(bool capture) override {
        if (!parent_ || capture == (parent_->capture_ == this)) return;
        Child* const before = std::exchange(parent_->capture_, capture ? this : nullptr);
        if (before && before != this) before->LoseCapture();
    }
    void SetPointer(const platform::Pointer& pointer) override { pointer_ = pointer.Shape; }
    void SetTip(const std::string& text, int, int) override { tip_ = text; }

    bool IsAt(int x, int y) const {
        const RECT seen = Common(place_, clip_);
        return visible_ && x >= seen.left && x < seen.right && y >= seen.top && y < seen.bottom;
    }
    // The handler may delete this.
    void Send(MouseEvent event) {
        event.X -= place_.left;
        event.Y -= place_.top;
        tip_.clear();
        handler_.Mouse(event);
    }
    void LoseCapture() { handler_.CaptureLost(); }
    PointerShape Pointer() const { return pointer_; }
    const std::string& Tip() const { return tip_; }

    std::unique_ptr<ControlWindow> NewChild(const RECT&, const RECT&, WindowHandler&) override {
        return nullptr;  // a control's window has no children
    }

    void PaintIfInvalid() {
        if (!invalid_ || !visible_) return;
        invalid_ = false;
        const auto target = Target();
        handler_.Paint(*target, Extent(place_.left, place_.right),
                       Extent(place_.top, place_.bottom));
    }

    // The handler may delete this.
    void Orphan() {
        parent_ = nullptr;
        handler_.Destroyed();
    }

private:
    std::unique_ptr<DrawingTarget> Target() const {
        const RECT nothing = {0, 0, 0, 0};
        return Canvas::Target(parent_->canvas_, {place_.left, place_.top},
                              visible_ ? Common(place_, clip_) : nothing);
    }

    void Uncover() {
        invalid_ = true;
        if (parent_) parent_->uncovered_ = true;
    }

    OffscreenWindow* parent_;
    RECT place_;
    RECT clip_;
    WindowHandler& handler_;
    bool visible_ = true;
    bool invalid_ = true;
    PointerShape pointer_ = PointerShape::Arrow;
    std::string tip_;
};

OffscreenWindow::OffscreenWindow(int width, int height) {
    Resize(width, height);
}

OffscreenWindow::~OffscreenWindow() {
    capture_ = under_ = nullptr;
    while (!children_.empty()) {
        Child* child = children_.back();
        children_.pop_back();
        child->Orphan();
    }
}

void OffscreenWindow::Resize(int width, int height) {
    constexpr int kLargest = 32767;
    width = std::clamp(width, 0, kLargest);
    height = std::clamp(height, 0, kLargest);
    canvas_ = std::make_shared<Canvas>(width, height);
    uncovered_ = true;
}

Pixels OffscreenWindow::Update() {
    if (std::exchange(uncovered_, false)) {
        canvas_->Clear();
        for (Child* child : children_)
            child->Invalidate();
    }
    // By number: painting may make a window go.
    std::size_t number = 0;
    while (number < children_.size())
        children_[number++]->PaintIfInvalid();
    return canvas_->AsPixels();
}

void OffscreenWindow::Send(MouseEvent event) {
    const auto at = std::find_if(children_.rbegin(), children_.rend(),
                                 [&](const Child* child) { return child->IsAt(event.X, event.Y); });
    under_ = capture_ ? capture_ : at != children_.rend() ? *at : nullptr;
    if (under_) under_->Send(event);
}

void OffscreenWindow::TakeCapture() {
    if (Child* const child = std::exchange(capture_, nullptr)) child->LoseCapture();
}

PointerShape OffscreenWindow::Pointer() const {
    return under_ ? under_->Pointer() : PointerShape::Arrow;
}

std::string OffscreenWindow::Tip() const {
    return under_ ? under_->Tip() : std::string();
}

std::unique_ptr<DrawingTarget> OffscreenWindow::Target() {
    const Pixels pixels = canvas_->AsPixels();
    return Canvas::Target(canvas_, {0, 0}, {0, 0, pixels.Width, pixels.Height});
}

std::unique_ptr<ControlWindow> OffscreenWindow::NewChild(const RECT& place, const RECT& clip,
                                                         WindowHandler& handler) {
    return std::make_unique<Child>(*this, place, clip, handler);
}

}  // namespace mavrin2::platform
