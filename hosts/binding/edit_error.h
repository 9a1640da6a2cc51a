#pragma once

#include <cstdint>
#include <string>

namespace mavrin2::binding {

// What an edit that has failed leaves as the control's LastErrorNum, in words.
std::string EditErrorText(std::int32_t error);

}  // namespace mavrin2::binding
