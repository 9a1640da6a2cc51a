#include "control/view/time_scale.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace mavrin2::view {
namespace {

constexpr int kMostDecimals = 7;
constexpr int kMeasuredDecimals = 4;

// The power of ten near a step: frames, and long times, are rounded down only when they are just
// above a power; short times when they are well below one.
double ExponentOf(double step, bool time) {
    const double exponent = std::log10(step);
    const double whole = std::trunc(exponent);
    if (time && exponent <= 0)
        return whole - exponent < 0.9 ? std::ceil(exponent) : std::floor(exponent);
    return exponent - whole < 0.1 ? std::floor(exponent) : std::ceil(exponent);
}

std::string Digits(std::int64_t value, int count) {
    std::string text = std::to_string(value);
    if (static_cast<int>(text.size()) < count)
        text.insert(0, static_cast<std::size_t>(count) - text.size(), '0');
    return text;
}

}  // namespace

TimeRange TimeRangeOf(Bytes startView, Bytes endView, Bytes total, std::int32_t channels,
                      std::int32_t frequency, std::int16_t type) {
    TimeRange range;
    range.Type = type;
    range.LongDocument = total.Count() > std::int64_t{frequency} * 6 * channels;
    const double unit = 2.0 * channels * (type == 2 ? frequency : 1);
    const double start = static_cast<double>(startView.Count()) / unit;
    const double end = static_cast<double>(endView.Count()) / unit;
    if (start == end) return range;
    range.Start = start;
    range.End = end;
    return range;
}

void TimeScale::Compute(const TimeRange& range, const platform::Font& font,
                        std::int32_t waveWidth) {
    Range = range;
    const bool time = range.Type == 2;
    const std::string widest = time ? FormatTime(range.End, kMeasuredDecimals, range.LongDocument)
                                    : std::to_string(static_cast<std::int64_t>(range.End));
    const std::int32_t room = std::max(font.Measure(widest).Width * 3 / 2 + (time ? 5 : 0), 1);
    const std::int32_t count = std::max(waveWidth / room, 1);
    const double length = range.End - range.Start;

    Step = std::pow(10.0, ExponentOf(length / count, time));
    FirstLabel = std::floor(range.Start / Step) * Step;
    Subdivisions = 10;
    const double crowded = time ? 2.0 : 1.6;
    auto labels = std::trunc(length / Step);
    while (count > labels * crowded) {
        Step /= 2;
        Subdivisions = Subdivisions == 10 ? 5 : 10;
        labels = std::trunc(length / Step);
        if (labels < 1) break;
    }
    if (time) return;
    Step = std::max(std::floor(Step), 1.0);
    if (Step < 10) Subdivisions = static_cast<std::int32_t>(Step);
}

int TimeScale::Decimals() const {
    // A power of ten cannot be held exactly: what is left of one is not a digit.
    constexpr double kNothing = 1e-6;
    double rest = Step - std::floor(Step);
    int decimals = 0;
    while (decimals < kMostDecimals && std::abs(rest - std::round(rest)) > kNothing) {
        rest *= 10;
        ++decimals;
    }
    return decimals;
}

std::string TimeScale::Label(double value) const {
    if (Range.Type == 2) return FormatTime(value, Decimals(), Range.LongDocument);
    return std::to_string(static_cast<std::int64_t>(value));
}

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
