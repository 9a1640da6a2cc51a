#include "automation/text.h"

#include <algorithm>
#include <cstdint>
#include <new>

namespace mavrin2::automation {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

bool IsSurrogate(char32_t c) {
    return c >= 0xD800 && c < 0xE000;
}

// Reads one code point and moves `at` past it; a malformed byte becomes one replacement character.
char32_t NextUtf8(std::string_view text, std::size_t& at) {
    const auto first = static_cast<std::uint8_t>(text[at++]);
    if (first < 0x80) return first;
    const int more = first >= 0xF0 && first < 0xF5 ? 3 : first >= 0xE0 ? 2 : first >= 0xC2 ? 1 : 0;
    if (more == 0 || first >= 0xF5) return kReplacement;
    char32_t c = first & (0x3F >> more);
    for (int i = 0; i < more; ++i) {
        if (at + i >= text.size() || (static_cast<std::uint8_t>(text[at + i]) & 0xC0) != 0x80)
            return kReplacement;
        c = (c << 6) | (static_cast<std::uint8_t>(text[at + i]) & 0x3F);
    }
    constexpr char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
    if (c < smallest[more] || c > 0x10FFFF || IsSurrogate(c)) return kReplacement;
    at += more;
    return c;
}

}  // namespace

std::string ToUtf8(OleStringView text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
            text[i + 1] < 0xE000) {
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00);
        } else if (IsSurrogate(c)) {
            c = kReplacement;
        }
        AppendUtf8(out, c);
    }
    return out;
}

OleString ToOle(std::string_view utf8) {
    OleString out;
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t c = NextUtf8(utf8, at);
        if (c < 0x10000) {
            out += static_cast<OLECHAR>(c);
        } else {
            out += static_cast<OLECHAR>(0xD800 + ((c - 0x10000) >> 10));
            out += static_cast<OLECHAR>(0xDC00 + ((c - 0x10000) & 0x3FF));
        }
    }
    return out;
}

std::filesystem::path ToPath(OleStringView text) {
    const std::string utf8 = ToUtf8(text);
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

OleString ToOle(const std::filesystem::path& path) {
    const std::u8string utf8 = path.u8string();
    return ToOle(std::string_view(reinterpret_cast<const char*>(utf8.data()), utf8.size()));
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
