#include "platform/ole_text.h"

#include "platform/windows/wide.h"

namespace mavrin2::platform {

std::string Utf8Of(std::wstring_view text) {
    const int size = static_cast<int>(text.size());
    std::string utf8(static_cast<std::size_t>(::WideCharToMultiByte(CP_UTF8, 0, text.data(), size,
                                                                    nullptr, 0, nullptr, nullptr)),
                     '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(), static_cast<int>(utf8.size()),
                          nullptr, nullptr);
    return utf8;
}

std::wstring OleTextOf(std::string_view utf8) {
    return WideOf(std::string(utf8));
}

}  // namespace mavrin2::platform
