#include "control/view/view_data.h"

namespace mavrin2::view {

std::int16_t CloseUpLevelOf(double bytesPerColumn, std::int32_t frequency) {
    const double farthest = frequency < 8000 ? 12 : frequency > 23000 ? 40 : 25;
    if (bytesPerColumn <= 0 || bytesPerColumn >= farthest) return 0;
    if (bytesPerColumn > 0.3) return 1;
    if (bytesPerColumn > 0.1) return 2;
    if (bytesPerColumn > 0.02) return 3;
    return 4;
}

}  // namespace mavrin2::view
