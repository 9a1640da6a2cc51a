#pragma once

#include <string>
#include <string_view>

namespace mavrin2::platform {

// The system's wide characters and those of u"" literals are of one size and one encoding here, and
// differ in type only.
inline std::wstring WideOf(std::u16string_view text) {
    return {text.begin(), text.end()};
}
inline std::u16string Utf16Of(std::wstring_view text) {
    return {text.begin(), text.end()};
}

// UTF-8 as the system wants it; what is not well formed becomes U+FFFD.
std::wstring WideOf(const std::string& utf8);

}  // namespace mavrin2::platform
