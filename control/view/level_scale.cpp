#include "control/view/level_scale.h"

#include <algorithm>
#include <cmath>

namespace mavrin2::view {
namespace {

constexpr double kLinesPerLabel = 3.2;
constexpr std::int32_t kLeastMinorTick = 5;  // pixels

// A little more than the largest value, so that full scale has its line inside of the lane.
std::int32_t SpanOf(std::int16_t type, std::int32_t bitsPerSample) {
    if (type == 2) return 110;
    return bitsPerSample == 8 && type != 3 ? 130 : 35000;
}

struct Round {
    std::int32_t Least;
    std::int32_t Multiple;
    std::int32_t SubdivisionsOfOne;
};

constexpr Round kRounds[] = {{10001, 10000, 10}, {5001, 5000, 5}, {1001, 1000, 10}, {501, 500, 5},
                             {101, 100, 10},     {51, 50, 5},     {11, 10, 10}};

}  // namespace

void LevelScale::Compute(const LevelScaleInput& input, const platform::Font& font) {
    const bool spectral = input.TypeView == TypeViewConstants::SPECTRAL;
    std::string measured;
    if (spectral) {
        Maximum = input.Frequency / 2;
        measured = std::to_string(std::int64_t{input.Frequency} * 10);
    } else {
        Maximum = std::max(SpanOf(input.Type, input.BitsPerSample) * input.VerticalZoom / 100, 1);
        measured = input.Type == 1 ? std::to_string(input.VerticalZoom * 32768 / 100) : "norm";
    }
    const std::int32_t visible = std::max(input.VisibleChannels, 1);
    const std::int32_t lineHeight = std::max(font.Measure(measured).Height, 1);
    const auto lines = static_cast<std::int32_t>(input.WaveHeight / (lineHeight * kLinesPerLabel));
    Step = Maximum / std::max(lines / visible, 1);
    ChooseStep();
    const std::int32_t steps = std::max(2 * Maximum / Step, 1);
    const std::int32_t minorTick = input.WaveHeight / visible / steps / Subdivisions;
    if (minorTick < kLeastMinorTick) Subdivisions = std::max(Subdivisions / 2, 1);
}

void LevelScale::ChooseStep() {
    for (const Round& round : kRounds) {
        if (Step < round.Least) continue;
        Subdivisions = Step / round.Multiple;
        Step = Subdivisions * round.Multiple;
        if (Subdivisions == 1) Subdivisions = round.SubdivisionsOfOne;
        return;
    }
    Subdivisions = 1;
    if (Step >= 6) Step = Subdivisions = 5;
    Step = std::max(Step, 1);
}

void LevelScale::Reset(std::int16_t type, std::int32_t bitsPerSample) {
    Maximum = SpanOf(type, bitsPerSample);
}

std::string LevelScale::Label(std::int32_t value, bool decibels) const {
    if (!decibels) return std::to_string(value);
    const double level =
        value == 0 ? -20 * std::log10(32768.0) : 20 * std::log10(value / 32768.0) - 0.5;
    return std::to_string(static_cast<std::int32_t>(level));
}

std::int32_t FullScaleValue(std::int16_t type, std::int32_t bitsPerSample) {
    if (type == 2) return 100;
    return bitsPerSample == 8 && type != 3 ? 125 : 32768;
}

}  // namespace mavrin2::view
