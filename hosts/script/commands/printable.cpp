#include "hosts/script/commands/printable.h"

#include <cstdint>
#include <cstdio>

namespace mavrin2::script {
namespace {

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

std::string Hexadecimal(const char* format, char c) {
    char text[8];
    std::snprintf(text, sizeof text, format, static_cast<unsigned>(static_cast<unsigned char>(c)));
    return text;
}

// Bytes of the character that `text` begins with; 0 if that is no UTF-8.
std::size_t LengthOfCharacter(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    if (byte(0) < 0x80) return 1;
    const std::size_t length = byte(0) >= 0xF0 ? 4 : byte(0) >= 0xE0 ? 3 : 2;
    if (byte(0) < 0xC2 || byte(0) > 0xF4 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xC0) != 0x80) return 0;
    // Longer than needed, halves of a pair, past the last character.
    if ((byte(0) == 0xE0 && byte(1) < 0xA0) || (byte(0) == 0xED && byte(1) >= 0xA0) ||
        (byte(0) == 0xF0 && byte(1) < 0x90) || (byte(0) == 0xF4 && byte(1) >= 0x90))
        return 0;
    return length;
}

}  // namespace

std::string Printable(std::string_view name) {
    std::string text;
    for (const char c : name) {
        if (!IsControl(c))
            text += c;
        else if (c == '\n')
            text += "\\n";
        else if (c == '\t')
            text += "\\t";
        else
            text += Hexadecimal("\\x%02X", c);
    }
    return text;
}

std::string JsonText(std::string_view text) {
    std::string json = "\"";
    while (!text.empty()) {
        const std::size_t length = LengthOfCharacter(text);
        if (length == 0)
            json += "\\uFFFD";
        else if (text[0] == '"' || text[0] == '\\')
            json += std::string("\\") + text[0];
        else if (IsControl(text[0]))
            json += Hexadecimal("\\u%04X", text[0]);
        else
            json += text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return json + "\"";
}

}  // namespace mavrin2::script
