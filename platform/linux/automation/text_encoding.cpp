#include "platform/linux/automation/text_encoding.h"

namespace mavrin2::platform::automation {
namespace {

constexpr char32_t Replacement = 0xFFFD;

bool IsHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
bool IsLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
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

void AppendUtf16(std::u16string& text, char32_t c) {
    if (c < 0x10000) {
        text += static_cast<char16_t>(c);
    } else {
        text += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
        text += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    }
}

// Takes one character off the front of a text that is not empty.
char32_t TakeCharacter(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    if (lead < 0x80) return lead;
    const int following = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : 0;
    if (following == 0 || lead > 0xF4) return Replacement;
    char32_t c = lead & (0x3F >> following);
    for (int i = 0; i < following; ++i) {
        if (text.empty() || (static_cast<unsigned char>(text.front()) & 0xC0) != 0x80) {
            return Replacement;
        }
        c = c << 6 | (static_cast<unsigned char>(text.front()) & 0x3F);
        text.remove_prefix(1);
    }
    constexpr char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
    const bool wellFormed =
        c >= smallest[following] && c <= 0x10FFFF && !IsHighSurrogate(c) && !IsLowSurrogate(c);
    return wellFormed ? c : Replacement;
}

}  // namespace

std::string ToUtf8(std::u16string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (IsHighSurrogate(c) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00);
        } else if (IsHighSurrogate(c) || IsLowSurrogate(c)) {
            c = Replacement;
        }
        AppendUtf8(result, c);
    }
    return result;
}

std::u16string FromUtf8(std::string_view text) {
    std::u16string result;
    result.reserve(text.size());
    while (!text.empty())
        AppendUtf16(result, TakeCharacter(text));
    return result;
}

}  // namespace mavrin2::platform::automation
