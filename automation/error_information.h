#pragma once

#include <string_view>

#include "platform/automation.h"

namespace mavrin2::automation {

// Leaves rich error information for the caller of the method that is about to fail: who failed
// (`source`, the program identifier of its class), through which interface, and a description.
// Nothing happens when the system cannot keep it.
void LeaveErrorInformation(const IID& interfaceId, std::string_view source,
                           std::string_view description);

}  // namespace mavrin2::automation
