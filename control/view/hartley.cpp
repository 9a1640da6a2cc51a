#include "control/view/hartley.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace mavrin2::view {
namespace {

constexpr std::size_t kRadix = 4;

}  // namespace

Hartley::Hartley() {
    for (std::size_t i = 0; i < Size; ++i) {
        const double angle = 2 * std::numbers::pi * static_cast<double>(i) / Size;
        turns_[i] = {static_cast<float>(std::cos(angle)), static_cast<float>(std::sin(angle))};
        reversed_[i] = i % kRadix * 16 + i / kRadix % kRadix * kRadix + i / 16;
    }
}

// Decimation in time: with H_r the transform of every fourth value from the r-th on, and φ = 2π r k
// ÷ length, H(k) = Σ H_r(k) cos φ + H_r(−k) sin φ.
void Hartley::Transform(Values& values) const {
    for (std::size_t i = 0; i < Size; ++i)
        if (reversed_[i] > i) std::swap(values[i], values[reversed_[i]]);

    for (std::size_t quarter = 1; quarter < Size; quarter *= kRadix) {
        for (std::size_t start = 0; start < Size; start += quarter * kRadix) {
            Signals* parts = &values[start];
            // k and −k need each other's values: they are done together.
            for (std::size_t k = 0; k <= quarter / 2; ++k) {
                const std::size_t mirror = (quarter - k) % quarter;
                const Turned turned = TurnParts(parts, quarter, k);
                if (mirror != k)
                    PutTogether(TurnParts(parts, quarter, mirror), parts, quarter, mirror);
                PutTogether(turned, parts, quarter, k);
            }
        }
    }
}

Hartley::Turned Hartley::TurnParts(const Signals* parts, std::size_t quarter, std::size_t k) const {
    Turned turned;
    const std::size_t mirror = (quarter - k) % quarter;
    for (std::size_t r = 0; r < kRadix; ++r) {
        const Turn turn = turns_[r * k * (Size / (quarter * kRadix))];
        const Signals& here = parts[r * quarter + k];
        const Signals& there = parts[r * quarter + mirror];
        for (std::size_t b = 0; b < Batch; ++b) {
            turned.Once[r][b] = here[b] * turn.Cos + there[b] * turn.Sin;
            turned.Further[r][b] = there[b] * turn.Cos - here[b] * turn.Sin;
        }
    }
    return turned;
}

void Hartley::PutTogether(const Turned& turned, Signals* parts, std::size_t quarter,
                          std::size_t k) {
    const auto& a = turned.Once;
    const auto& b = turned.Further;
    for (std::size_t i = 0; i < Batch; ++i) {
        const float even = a[0][i] + a[2][i];
        const float odd = a[1][i] + a[3][i];
        const float evenDifference = a[0][i] - a[2][i];
        const float oddDifference = b[1][i] - b[3][i];
        parts[k][i] = even + odd;
        parts[quarter + k][i] = evenDifference + oddDifference;
        parts[2 * quarter + k][i] = even - odd;
        parts[3 * quarter + k][i] = evenDifference - oddDifference;
    }
}

}  // namespace mavrin2::view
