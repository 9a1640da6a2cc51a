#pragma once

#include <cstddef>
#include <vector>

namespace mavrin2::signal {

enum class RemezOutcome {
    Converged = 0,
    DeviationFell = 1,   // stopped where rounding errors undo the progress
    IterationLimit = 2,  // after 40 iterations
};

// One point of the dense grid on which an approximation is judged.
struct RemezPoint {
    double X;
    double Desired;
    double Weight;
    bool FirstOfBand;
};

// The polynomial P of a given number of terms for which the largest weight × |desired − P(x)| over
// the grid is smallest, found by the Remez exchange. See Parks and McClellan, "Chebyshev
// approximation for nonrecursive digital filters with linear phase", IEEE Trans. Circuit Theory 19
// (1972).
class RemezExchange {
public:
    // The grid is in descending order of X, with more points than the polynomial has terms.
    RemezExchange(std::vector<RemezPoint> grid, std::size_t terms);

    double ValueAt(double x) const;
    double Deviation() const;
    RemezOutcome Outcome() const { return outcome_; }

private:
    // A local extremum of the weighted error.
    struct Extremum {
        std::size_t Index;
        double Error;
    };

    void Exchange();
    void SolveDeviation();
    std::vector<double> Errors() const;
    std::vector<std::size_t> FindExtremalSet() const;

    std::vector<RemezPoint> grid_;
    std::vector<std::size_t> extremal_;  // ascending indexes into the grid, one more than terms
    std::vector<double> barycentric_;    // weights of Lagrange's interpolation through them
    std::vector<double> values_;         // of the polynomial at the extremal points
    double signedDeviation_ = 0;
    RemezOutcome outcome_ = RemezOutcome::IterationLimit;
};

}  // namespace mavrin2::signal
