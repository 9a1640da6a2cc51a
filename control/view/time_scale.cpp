#include "control/view/time_scale.h"

#include <algorithm>
#include <cmath>

#include "control/view/format_time.h"

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

}  // namespace mavrin2::view
