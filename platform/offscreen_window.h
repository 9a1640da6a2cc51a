#pragma once

#include <memory>
#include <vector>

#include "platform/window.h"

namespace mavrin2::platform {

// A window without a screen: its content is kept in pixels, and the host says what the mouse does.
// A host owns it and passes its address as the handle; children are clipped to it, not by each
// other.
class OffscreenWindow final : public Window {
public:
    // In pixels, 0 … 32767. Throws std::bad_alloc.
    OffscreenWindow(int width, int height);
    OffscreenWindow(const OffscreenWindow&) = delete;
    OffscreenWindow& operator=(const OffscreenWindow&) = delete;
    // Destroys its children.
    ~OffscreenWindow();

    void Resize(int width, int height);

    // Paints what is invalid and returns the window's content, valid until the next call. The
    // window must not be destroyed meanwhile.
    Pixels Update();
    // Draws on the window itself, at its present size: what is drawn after a change of size is
    // lost.
    std::unique_ptr<DrawingTarget> Target();

    // Passes an event at a pixel of this window to the child that has captured the mouse, otherwise
    // to the topmost visible one there.
    void Send(MouseEvent event);
    // Takes the mouse away from a child that has captured it.
    void TakeCapture();
    // Of the child that the last event was for.
    PointerShape Pointer() const;
    std::string Tip() const;

    std::unique_ptr<ControlWindow> NewChild(const RECT& place, const RECT& clip,
                                            WindowHandler& handler) override;

private:
    class Child;
    class Canvas;

    std::shared_ptr<Canvas> canvas_;  // shared with what is drawn on it just now
    std::vector<Child*> children_;    // from the lowest to the topmost; not owned
    Child* capture_ = nullptr;        // the one that has captured the mouse
    Child* under_ = nullptr;          // the one that the last mouse event was for
    bool uncovered_ = true;           // the pixels that no child covers are stale
};

}  // namespace mavrin2::platform
