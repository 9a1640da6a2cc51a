#pragma once

#include <memory>

#include "platform/clipboard.h"

namespace mavrin2::platform {

std::shared_ptr<SoundClipboard> WindowsClipboard();

}  // namespace mavrin2::platform
