#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mavrin2::platform::automation {

// Wide enough to hold every 64-bit integer and every amount of money exactly.
using WideNumber = long double;

// The number that the whole text states: blanks around it, a leading or trailing sign, or
// parentheses for minus; digits with a decimal point and an exponent, or &H and &O for hexadecimal
// and octal. Grouping and currency signs are refused, for they depend on where a user lives.
// Infinite where the number is larger than any; nothing where the text states none.
std::optional<WideNumber> ParseNumber(std::u16string_view text);

// As "%.*G" prints in the C locale, with -0 as 0.
std::u16string FormatNumber(double value, int digits);

}  // namespace mavrin2::platform::automation
