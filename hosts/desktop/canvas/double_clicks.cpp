#include "hosts/desktop/canvas/double_clicks.h"

#include <cstdlib>

namespace mavrin2::desktop {

bool DoubleClicks::IsSecond(platform::MouseButton button, int x, int y, std::uint64_t time) {
    constexpr std::uint64_t kLongest = 500;
    constexpr int kFarthest = 4;
    const bool second = button == button_ && time - time_ <= kLongest &&
                        std::abs(x - x_) <= kFarthest && std::abs(y - y_) <= kFarthest;
    button_ = second ? platform::MouseButton::None : button;
    x_ = x;
    y_ = y;
    time_ = time;
    return second;
}

}  // namespace mavrin2::desktop
