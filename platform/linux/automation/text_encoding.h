#pragma once

#include <string>
#include <string_view>

#include "platform/linux/automation/types.h"

namespace mavrin2::platform::automation {

// What is not well formed becomes U+FFFD, so that no text is refused.
MAVRIN2_AUTOMATION_API std::string ToUtf8(std::u16string_view text);
MAVRIN2_AUTOMATION_API std::u16string FromUtf8(std::string_view text);

}  // namespace mavrin2::platform::automation
