#include "platform/ole_text.h"

#include <cstdint>

namespace mavrin2::platform {
namespace {

using OleText = std::basic_string<OLECHAR>;
using OleTextView = std::basic_string_view<OLECHAR>;

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstOfBytes = 0xDC00;  // would encode the byte 0, which is never ill-formed

bool IsHighSurrogate(char32_t c) {
    return c >= 0xD800 && c < 0xDC00;
}
bool IsLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c < 0xE000;
}
bool IsSurrogate(char32_t c) {
    return c >= 0xD800 && c < 0xE000;
}
bool StandsForByte(char32_t c) {
    return c >= kFirstOfBytes + 0x80 && c <= kFirstOfBytes + 0xFF;
}

void AppendUtf8(std::string& text, char32_t c) {
    const auto byte = [&text](char32_t value) { text += static_cast<char>(value); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xC0 | c >> 6);
        byte(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        byte(0xE0 | c >> 12);
        byte(0x80 | (c >> 6 & 0x3F));
        byte(0x80 | (c & 0x3F));
    } else {
        byte(0xF0 | c >> 18);
        byte(0x80 | (c >> 12 & 0x3F));
        byte(0x80 | (c >> 6 & 0x3F));
        byte(0x80 | (c & 0x3F));
    }
}

// Reads one character and moves `at` past it. Of an ill-formed sequence, the first byte alone.
char32_t NextOfUtf8(std::string_view text, std::size_t& at) {
    const auto first = static_cast<std::uint8_t>(text[at++]);
    if (first < 0x80) return first;
    const int more = first >= 0xF0 && first < 0xF5   ? 3
                     : first >= 0xE0 && first < 0xF0 ? 2
                     : first >= 0xC2 && first < 0xE0 ? 1
                                                     : 0;
    char32_t c = first & (0x3F >> more);
    for (int i = 0; i < more; ++i) {
        if (at + i >= text.size() || (static_cast<std::uint8_t>(text[at + i]) & 0xC0) != 0x80)
            return kFirstOfBytes + first;
        c = c << 6 | (static_cast<std::uint8_t>(text[at + i]) & 0x3F);
    }
    constexpr char32_t smallest[] = {0x110000, 0x80, 0x800, 0x10000};
    if (c < smallest[more] || c > 0x10FFFF || IsSurrogate(c)) return kFirstOfBytes + first;
    at += more;
    return c;
}

// Reads one character and moves `at` past it; a lone surrogate is returned as it is.
char32_t NextOfOleText(OleTextView text, std::size_t& at) {
    const char32_t c = text[at++];
    if (!IsHighSurrogate(c) || at == text.size() || !IsLowSurrogate(text[at])) return c;
    return 0x10000 + ((c - 0xD800) << 10) + (text[at++] - 0xDC00);
}

}  // namespace

std::string Utf8Of(OleTextView text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = NextOfOleText(text, at);
        if (StandsForByte(c)) {
            utf8 += static_cast<char>(c - kFirstOfBytes);
        } else {
            AppendUtf8(utf8, IsSurrogate(c) ? kReplacement : c);
        }
    }
    return utf8;
}

std::string WellFormedUtf8Of(OleTextView text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = NextOfOleText(text, at);
        AppendUtf8(utf8, IsSurrogate(c) ? kReplacement : c);
    }
    return utf8;
}

OleText OleTextOf(std::string_view utf8) {
    OleText text;
    text.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t c = NextOfUtf8(utf8, at);
        if (c < 0x10000) {
            text += static_cast<OLECHAR>(c);
        } else {
            text += static_cast<OLECHAR>(0xD800 + ((c - 0x10000) >> 10));
            text += static_cast<OLECHAR>(0xDC00 + ((c - 0x10000) & 0x3FF));
        }
    }
    return text;
}

}  // namespace mavrin2::platform
