#pragma once

#include <string>
#include <string_view>

#include "platform/automation.h"

namespace mavrin2::platform {

// Between the texts of automation and UTF-8. What is not well formed becomes U+FFFD.
std::string Utf8Of(std::basic_string_view<OLECHAR> text);
std::basic_string<OLECHAR> OleTextOf(std::string_view utf8);

}  // namespace mavrin2::platform
