#include "companions/ontiva/info/text_encoding.h"

#include <array>
#include <cstdint>

namespace mavrin2::ontiva {
namespace {

// Windows-1252 where it differs from Latin-1: bytes 0x80 to 0x9F. Five of them have no character.
constexpr std::array<char16_t, 32> kWestern = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

void AddCharacter(std::string& text, char16_t character) {
    if (character < 0x80) {
        text.push_back(static_cast<char>(character));
    } else if (character < 0x800) {
        text.push_back(static_cast<char>(0xC0 | character >> 6));
        text.push_back(static_cast<char>(0x80 | (character & 0x3F)));
    } else {
        text.push_back(static_cast<char>(0xE0 | character >> 12));
        text.push_back(static_cast<char>(0x80 | (character >> 6 & 0x3F)));
        text.push_back(static_cast<char>(0x80 | (character & 0x3F)));
    }
}

bool Continues(char byte) {
    return (static_cast<std::uint8_t>(byte) & 0xC0) == 0x80;
}

}  // namespace

bool IsUtf8(std::string_view bytes) {
    constexpr std::array<std::uint32_t, 4> kSmallest = {0, 0x80, 0x800, 0x10000};
    for (std::size_t i = 0; i < bytes.size();) {
        const auto first = static_cast<std::uint8_t>(bytes[i++]);
        if (first < 0x80) continue;
        const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
        if (first < 0xC2 || first > 0xF4 || bytes.size() - i < more) return false;
        std::uint32_t code = first & (0x3FU >> more);
        for (std::size_t k = 0; k < more; ++k, ++i) {
            if (!Continues(bytes[i])) return false;
            code = code << 6 | (static_cast<std::uint8_t>(bytes[i]) & 0x3FU);
        }
        if (code < kSmallest[more] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000))
            return false;
    }
    return true;
}

std::string TextOf(std::string_view bytes) {
    bytes = bytes.substr(0, bytes.find('\0'));
    if (IsUtf8(bytes)) return std::string(bytes);
    std::string text;
    for (const char byte : bytes) {
        const auto code = static_cast<std::uint8_t>(byte);
        AddCharacter(text, code >= 0x80 && code < 0xA0 ? kWestern[code - 0x80U] : code);
    }
    return text;
}

std::string_view Cut(std::string_view utf8, std::size_t bytes) {
    if (utf8.size() <= bytes) return utf8;
    while (bytes > 0 && Continues(utf8[bytes]))
        --bytes;
    return utf8.substr(0, bytes);
}

}  // namespace mavrin2::ontiva
