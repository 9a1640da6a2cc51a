#pragma once

#include <memory>

#include "platform/text.h"

namespace mavrin2::platform {

// Nothing is looked for before the first font is asked for.
std::shared_ptr<FontLoader> LinuxFonts();

}  // namespace mavrin2::platform
