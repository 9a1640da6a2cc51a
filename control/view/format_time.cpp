#include "control/view/format_time.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace mavrin2::view {
namespace {

constexpr int kMostDecimals = 7;

std::string Digits(std::int64_t value, int count) {
    std::string text = std::to_string(value);
    if (static_cast<int>(text.size()) < count)
        text.insert(0, static_cast<std::size_t>(count) - text.size(), '0');
    return text;
}

}  // namespace

std::string FormatTime(double seconds, int decimals, bool longDocument) {
    decimals = std::clamp(decimals, 0, kMostDecimals);
    if (!longDocument) {
        // Not printf, which writes the fraction as the user's language does.
        std::array<char, 400> text;
        const auto end = std::to_chars(text.data(), text.data() + text.size(), seconds,
                                       std::chars_format::fixed, decimals);
        return {text.data(), end.ptr};
    }
    auto minutes = static_cast<std::int64_t>(seconds / 60);
    auto whole = static_cast<std::int64_t>(seconds - 60.0 * static_cast<double>(minutes));
    const double scale = std::pow(10.0, decimals);
    const double rest = seconds - 60.0 * static_cast<double>(minutes) - static_cast<double>(whole);
    auto fraction = static_cast<std::int64_t>(std::floor(rest * scale + 0.5));
    if (fraction >= static_cast<std::int64_t>(scale)) {
        fraction -= static_cast<std::int64_t>(scale);
        if (++whole == 60) {
            whole = 0;
            ++minutes;
        }
    }
    std::string text = std::to_string(minutes) + ":" + Digits(whole, 2) + ".";
    if (decimals > 0) text += Digits(fraction, decimals);
    return text;
}

}  // namespace mavrin2::view
