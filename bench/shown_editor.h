#pragma once

#include <cstdint>
#include <vector>

#include "bench/editor.h"
#include "platform/pixel_target.h"

namespace mavrin2::bench {

// An editor whose picture a container draws, without a window.
class ShownEditor : public Editor {
public:
    ShownEditor(int width, int height);

    // As a container does it: a copy while the picture's place is the same.
    void Paint();
    // Composes the picture.
    void Redraw();
    std::vector<std::uint32_t>& Pixels() { return pixels_; }

private:
    int width_;
    int height_;
    std::vector<std::uint32_t> pixels_;
    platform::PixelTarget target_;
    automation::ComPtr<IViewObject> view_;
    automation::ComPtr<interfaces::IMavrin2Colors> colors_;
};

}  // namespace mavrin2::bench
