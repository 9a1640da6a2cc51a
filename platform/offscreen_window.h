#pragma once

#include <cstdint>
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

    // Has painted what must be, and gives what is to be seen, until the next call.
    Pixels Update();

    std::unique_ptr<ControlWindow> NewChild(const RECT& place, const RECT& clip,
                                            WindowHandler& handler) override;

private:
    class Child;

    int width_ = 0;
    int height_ = 0;
    std::vector<std::uint32_t> pixels_;
    std::vector<Child*> children_;  // from the lowest to the one on top; not owned
    bool uncovered_ = true;         // pixels that no child covers are to be made anew
};

}  // namespace mavrin2::platform
