#include "automation/text.h"

#include <algorithm>
#include <new>

#include "platform/ole_text.h"

namespace mavrin2::automation {

std::string ToUtf8(OleStringView text) {
    return platform::Utf8Of(text);
}
std::string ToWellFormedUtf8(OleStringView text) {
    return platform::WellFormedUtf8Of(text);
}
OleString ToOle(std::string_view utf8) {
    return platform::OleTextOf(utf8);
}
std::filesystem::path ToPath(OleStringView text) {
    return platform::PathOf(text);
}
OleString ToOle(const std::filesystem::path& path) {
    return platform::OleTextOfPath(path);
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    return AsciiLower(a) == AsciiLower(b);
}

std::string AsciiLower(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return out;
}

Bstr::Bstr(OleStringView text)
    : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
    if (!text_) throw std::bad_alloc();
}

}  // namespace mavrin2::automation
