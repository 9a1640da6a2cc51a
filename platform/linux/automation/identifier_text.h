#pragma once

#include <string_view>

#include "platform/linux/automation/types.h"

namespace mavrin2::platform::automation {

// Reads `{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}` with digits in either case; `guid` is as it was
// when the text is anything else.
bool ParseIdentifier(std::u16string_view text, GUID& guid);

}  // namespace mavrin2::platform::automation
