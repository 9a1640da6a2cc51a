#pragma once

#include <memory>

#include "platform/text.h"

namespace mavrin2::platform {

std::shared_ptr<FontLoader> WindowsFonts();

}  // namespace mavrin2::platform
