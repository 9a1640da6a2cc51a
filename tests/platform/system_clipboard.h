#pragma once

#include <memory>

#include "platform/clipboard.h"

namespace mavrin2::tests {

// The system's clipboard without any sound, if possible one that only the test sees.
std::shared_ptr<platform::SoundClipboard> EmptySystemClipboard();

}  // namespace mavrin2::tests
