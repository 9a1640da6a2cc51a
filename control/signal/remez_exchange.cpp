#include "control/signal/remez_exchange.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace mavrin2::signal {
namespace {

constexpr int kIterationLimit = 40;

// Keeps the errors alternating while the smallest go, until `size` are left.
template <class Extremum>
void DropSmallest(std::vector<Extremum>& extrema, std::size_t size) {
    const auto magnitude = [](const Extremum& e) { return std::abs(e.Error); };
    while (extrema.size() > size) {
        // A single one can only go at an end; within, two neighbours go together.
        if (extrema.size() == size + 1) {
            const bool first = magnitude(extrema.front()) < magnitude(extrema.back());
            extrema.erase(first ? extrema.begin() : extrema.end() - 1);
            return;
        }
        auto smallest = std::ranges::min_element(extrema, {}, magnitude);
        if (smallest == extrema.begin() || smallest == extrema.end() - 1) {
            extrema.erase(smallest);
            continue;
        }
        if (magnitude(*(smallest - 1)) < magnitude(*(smallest + 1))) --smallest;
        extrema.erase(smallest, smallest + 2);
    }
}

}  // namespace

RemezExchange::RemezExchange(std::vector<RemezPoint> grid, std::size_t terms)
    : grid_(std::move(grid)), extremal_(terms + 1) {
    // Evenly spread at first.
    const auto intervals = static_cast<double>(std::max<std::size_t>(terms, 1));
    for (std::size_t i = 0; i < extremal_.size(); ++i)
        extremal_[i] = static_cast<std::size_t>(std::lround(
            static_cast<double>(i) * static_cast<double>(grid_.size() - 1) / intervals));
    Exchange();
}

void RemezExchange::Exchange() {
    double before = 0;
    for (int iteration = 0; iteration < kIterationLimit; ++iteration) {
        SolveDeviation();
        if (Deviation() < before) {
            outcome_ = RemezOutcome::DeviationFell;
            return;
        }
        before = Deviation();
        std::vector<std::size_t> next = FindExtremalSet();
        if (next == extremal_) {
            outcome_ = RemezOutcome::Converged;
            return;
        }
        // The last polynomial stays the one that was judged last.
        if (iteration + 1 < kIterationLimit) extremal_ = std::move(next);
    }
}

// The polynomial whose errors at the extremal points are of one size and of alternating signs.
void RemezExchange::SolveDeviation() {
    const std::size_t count = extremal_.size();
    barycentric_.assign(count, 1);
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t j = 0; j < count; ++j)
            // Twice the difference keeps the product of the Chebyshev points' order near 1.
            if (j != i) barycentric_[i] /= 2 * (grid_[extremal_[i]].X - grid_[extremal_[j]].X);

    double numerator = 0;
    double denominator = 0;
    double sign = -1;
    for (std::size_t i = 0; i < count; ++i, sign = -sign) {
        const RemezPoint& point = grid_[extremal_[i]];
        numerator += barycentric_[i] * point.Desired;
        denominator += sign * barycentric_[i] / point.Weight;
    }
    signedDeviation_ = numerator / denominator;

    values_.resize(count);
    sign = -1;
    for (std::size_t i = 0; i < count; ++i, sign = -sign) {
        const RemezPoint& point = grid_[extremal_[i]];
        values_[i] = point.Desired - sign * signedDeviation_ / point.Weight;
    }
}

double RemezExchange::Deviation() const {
    return std::abs(signedDeviation_);
}

double RemezExchange::ValueAt(double x) const {
    double numerator = 0;
    double denominator = 0;
    for (std::size_t i = 0; i < extremal_.size(); ++i) {
        const double distance = x - grid_[extremal_[i]].X;
        if (distance == 0) return values_[i];
        const double share = barycentric_[i] / distance;
        numerator += share * values_[i];
        denominator += share;
    }
    return numerator / denominator;
}

std::vector<double> RemezExchange::Errors() const {
    std::vector<double> errors(grid_.size());
    for (std::size_t i = 0; i < grid_.size(); ++i)
        errors[i] = grid_[i].Weight * (grid_[i].Desired - ValueAt(grid_[i].X));
    return errors;
}

std::vector<std::size_t> RemezExchange::FindExtremalSet() const {
    const std::vector<double> errors = Errors();
    std::vector<Extremum> extrema;
    for (std::size_t i = 0; i < errors.size(); ++i) {
        const double error = errors[i];
        const double sign = error < 0 ? -1 : 1;
        const bool risen = grid_[i].FirstOfBand || sign * errors[i - 1] <= sign * error;
        const bool last = i + 1 == errors.size() || grid_[i + 1].FirstOfBand;
        const bool falls = last || sign * errors[i + 1] < sign * error;
        if (!risen || !falls || sign * error < Deviation() * (1 - 1e-9)) continue;
        // Of neighbours with one sign the larger stays.
        if (extrema.empty() || extrema.back().Error * sign < 0)
            extrema.push_back({i, error});
        else if (std::abs(error) > std::abs(extrema.back().Error))
            extrema.back() = {i, error};
    }
    // Rounding hid one: nothing better can be found.
    if (extrema.size() < extremal_.size()) return extremal_;
    DropSmallest(extrema, extremal_.size());
    std::vector<std::size_t> indexes(extrema.size());
    std::ranges::transform(extrema, indexes.begin(), &Extremum::Index);
    return indexes;
}

}  // namespace mavrin2::signal
