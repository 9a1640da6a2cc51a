#pragma once

#include <cmath>

namespace mavrin2::kestrin {

inline double FactorOfDecibels(double decibels) {
    return std::pow(10.0, decibels / 20);
}

// −200 for silence.
inline double DecibelsOfPower(double power) {
    return power > 1e-20 ? 10 * std::log10(power) : -200.0;
}

}  // namespace mavrin2::kestrin
