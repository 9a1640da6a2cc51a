#include "companions/kestrin/kernels/filter_cascade.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace mavrin2::kestrin {
namespace {

// Transposed direct form II.
StateSpace<2, double> ToStateSpace(const FilterSection& section) {
    StateSpace<2, double> system;
    system.Direct = section.B0;
    system.Output = {1, 0};
    system.Transition = {{{-section.A1, -section.A2}, {1, 0}}};
    system.Input = {section.B1 - section.A1 * section.B0, section.B2 - section.A2 * section.B0};
    return system;
}

// Samples until the section's memory has faded to a ten-thousandth.
double SettlingTime(const FilterSection& section) {
    const double inside = section.A1 * section.A1 / 4 - section.A2;
    const double radius =
        inside > 0 ? std::abs(section.A1) / 2 + std::sqrt(inside) : std::sqrt(std::abs(section.A2));
    if (radius < 1e-3) return 2;
    return radius < 1 ? std::log(1e-4) / std::log(radius) : 1e9;
}

constexpr double kLongestLeadIn = 1 << 17;

}  // namespace

FilterCascade::FilterCascade(std::span<const FilterSection> sections) {
    double settling = 0;
    for (const FilterSection& section : sections) {
        sections_.emplace_back(ToStateSpace(section));
        settling = std::max(settling, SettlingTime(section));
    }
    leadIn_ = static_cast<std::size_t>(std::min(settling, kLongestLeadIn));
}

void FilterCascade::Process(std::span<float> block) {
    std::array<double, 1024> values;
    while (!block.empty()) {
        const std::size_t count = std::min(block.size(), values.size());
        const auto piece = std::span(values).first(count);
        std::copy_n(block.begin(), count, piece.begin());
        for (auto& section : sections_)
            section.Process(piece);
        std::transform(piece.begin(), piece.end(), block.begin(),
                       [](double value) { return static_cast<float>(value); });
        block = block.subspan(count);
    }
}

}  // namespace mavrin2::kestrin
