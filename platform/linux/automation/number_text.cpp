#include "platform/linux/automation/number_text.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace mavrin2::platform::automation {
namespace {

bool IsBlank(char16_t c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r') || c == u'\u00A0';
}

std::u16string_view Trimmed(std::u16string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

struct Signed {
    std::u16string_view Digits;
    bool Negative = false;
};

// Removes one sign, leading or trailing.
Signed SplitSign(std::u16string_view text) {
    if (text.empty()) return {text};
    if (text.size() > 2 && text.front() == u'(' && text.back() == u')') {
        return {Trimmed(text.substr(1, text.size() - 2)), true};
    }
    const auto isSign = [](char16_t c) { return c == u'+' || c == u'-'; };
    if (isSign(text.front())) return {Trimmed(text.substr(1)), text.front() == u'-'};
    if (isSign(text.back())) {
        return {Trimmed(text.substr(0, text.size() - 1)), text.back() == u'-'};
    }
    return {text};
}

std::optional<WideNumber> ParseInteger(std::string_view digits, int base) {
    std::uint64_t value = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    if (error == std::errc::invalid_argument || end != digits.data() + digits.size()) return {};
    if (error != std::errc()) return std::numeric_limits<WideNumber>::infinity();
    return static_cast<WideNumber>(value);
}

std::optional<WideNumber> ParseDecimal(std::string_view digits) {
    // Keeps names such as "inf" from the parser; distinguishes too large from too small.
    if (digits.find_first_not_of("0123456789.eE+-") != std::string_view::npos) return {};
    WideNumber value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error == std::errc::invalid_argument || end != digits.data() + digits.size()) return {};
    if (error == std::errc::result_out_of_range) {
        const auto exponent = digits.find_first_of("eE");
        const bool small = exponent != std::string_view::npos && digits[exponent + 1] == '-';
        return small ? 0 : std::numeric_limits<WideNumber>::infinity();
    }
    return value;
}

}  // namespace

std::optional<WideNumber> ParseNumber(std::u16string_view text) {
    const Signed parts = SplitSign(Trimmed(text));
    std::string digits;
    digits.reserve(parts.Digits.size());
    for (const char16_t c : parts.Digits) {
        if (c > 0x7E) return {};
        digits.push_back(static_cast<char>(c));
    }
    // A second sign would be taken for a part of the number.
    if (digits.empty() || digits.front() == '-' || digits.front() == '+') return {};

    std::optional<WideNumber> value;
    if (digits.starts_with("&H") || digits.starts_with("&h")) {
        value = ParseInteger(std::string_view(digits).substr(2), 16);
    } else if (digits.starts_with("&O") || digits.starts_with("&o")) {
        value = ParseInteger(std::string_view(digits).substr(2), 8);
    } else {
        value = ParseDecimal(digits);
    }
    if (value && parts.Negative) value = -*value;
    return value;
}

std::u16string FormatNumber(double value, int digits) {
    char buffer[64];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof(buffer), value == 0 ? 0 : value,
                                            std::chars_format::general, digits);
    if (error != std::errc()) return {};
    std::u16string text(buffer, end);
    std::replace(text.begin(), text.end(), u'e', u'E');
    return text;
}

}  // namespace mavrin2::platform::automation
