#pragma once

#include <functional>
#include <memory>

#include "platform/text.h"

namespace mavrin2::platform {

// Keeps the fonts that were asked for last, since a view asks again for each picture. `load` is
// asked for the others and never gives null.
std::shared_ptr<FontLoader> CachedFonts(
    std::function<std::shared_ptr<const Font>(const FontDescription&)> load);

}  // namespace mavrin2::platform
