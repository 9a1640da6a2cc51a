#include "platform/windows/wide.h"

#include "platform/automation.h"

namespace mavrin2::platform {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::wstring WideOf(const std::string& utf8) {
    const int size = static_cast<int>(utf8.size());
    std::wstring wide(
        static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)),
        L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(),
                          static_cast<int>(wide.size()));
    return wide;
}

}  // namespace mavrin2::platform
