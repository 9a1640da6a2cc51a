#pragma once

#include <string>

namespace mavrin2::view {

// Minutes, seconds and a fraction of so many digits, or for a short document the seconds alone.
std::string FormatTime(double seconds, int decimals, bool longDocument);

}  // namespace mavrin2::view
