#pragma once

#include <string>
#include <string_view>

namespace mavrin2::platform::automation {

// What is not well formed becomes U+FFFD, so that no text is refused.
std::string ToUtf8(std::u16string_view text);
std::u16string FromUtf8(std::string_view text);

}  // namespace mavrin2::platform::automation
