#pragma once

#include <memory>
#include <vector>

#include "platform/window.h"

namespace mavrin2::platform {

// A window without a screen: what it shows is kept in pixels. A host owns it and gives its address
// as the handle; windows inside it are clipped to it, not by each other.
class OffscreenWindow final : public Window {
public:
    // In pixels, 0 … 32767. Throws std::bad_alloc.
    OffscreenWindow(int width, int height);
    OffscreenWindow(const OffscreenWindow&) = delete;
    OffscreenWindow& operator=(const OffscreenWindow&) = delete;
    // Takes the windows inside it along.
    ~OffscreenWindow();

    void Resize(int width, int height);

    // Paints what is invalid and returns the window's content, valid until the next call. The
    // window must not be destroyed meanwhile.
    Pixels Update();
    // Draws on the window itself, at its present size: what is drawn after a change of size is
    // lost.
    std::unique_ptr<DrawingTarget> Target();

    std::unique_ptr<ControlWindow> NewChild(const RECT& place, const RECT& clip,
                                            WindowHandler& handler) override;

private:
    class Child;
    class Canvas;

    std::shared_ptr<Canvas> canvas_;  // shared with what is drawn on it just now
    std::vector<Child*> children_;    // from the lowest to the one on top; not owned
    bool uncovered_ = true;           // pixels that no child covers are to be made anew
};

}  // namespace mavrin2::platform
