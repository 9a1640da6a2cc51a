#pragma once

#include <algorithm>
#include <cmath>

namespace mavrin2::kestrin {

// What a parameter of an operation may be.
struct Parameter {
    const char* Name;
    double Low;
    double High;
    double Neutral;  // where it changes nothing, or least; used for what is not a number

    // Values outside of the range become its nearer end.
    double Limit(double value) const {
        return std::isnan(value) ? Neutral : std::clamp(value, Low, High);
    }
};

}  // namespace mavrin2::kestrin
