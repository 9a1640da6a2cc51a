#include "control/view/close_up_curve.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <vector>

namespace mavrin2::view {
namespace {

struct Point {
    double X = 0;
    double Y = 0;
};

// Where a column has both, the one farther from zero is drawn.
std::vector<Point> CollectPoints(const ViewData::Entries& low, const ViewData::Entries& high,
                                 std::int32_t last) {
    std::vector<Point> points;
    for (std::int32_t column = 0; column <= last; ++column) {
        const std::int32_t lowest = low[static_cast<std::size_t>(column)];
        const std::int32_t highest = high[static_cast<std::size_t>(column)];
        const bool hasLow = lowest != ViewData::EmptyColumn;
        const bool hasHigh = highest != ViewData::EmptyColumn;
        if (!hasLow && !hasHigh) continue;
        const bool takeHigh = hasHigh && (!hasLow || std::abs(lowest) <= std::abs(highest));
        points.push_back(
            {static_cast<double>(column), static_cast<double>(takeHigh ? highest : lowest)});
    }
    return points;
}

// Lagrange's polynomial.
double Parabola(const Point& a, const Point& b, const Point& c, double x) {
    return a.Y * (x - b.X) * (x - c.X) / ((a.X - b.X) * (a.X - c.X)) +
           b.Y * (x - a.X) * (x - c.X) / ((b.X - a.X) * (b.X - c.X)) +
           c.Y * (x - a.X) * (x - b.X) / ((c.X - a.X) * (c.X - b.X));
}

std::int32_t Truncated(double value) {
    return static_cast<std::int32_t>(
        std::clamp(value, static_cast<double>(std::numeric_limits<std::int32_t>::min()),
                   static_cast<double>(std::numeric_limits<std::int32_t>::max())));
}

// Natural cubic spline: its second derivatives at the points, from the usual tridiagonal system.
class Spline {
public:
    Spline(const Point* points, std::size_t count) : points_(points), second_(count) {
        std::vector<double> diagonal(count);
        std::vector<double> right(count);
        for (std::size_t k = 1; k + 1 < count; ++k) {
            const double before = points[k].X - points[k - 1].X;
            const double after = points[k + 1].X - points[k].X;
            diagonal[k] = 2 * (before + after);
            right[k] = 6 * ((points[k + 1].Y - points[k].Y) / after -
                            (points[k].Y - points[k - 1].Y) / before);
            if (k == 1) continue;
            const double factor = before / diagonal[k - 1];
            diagonal[k] -= factor * before;
            right[k] -= factor * right[k - 1];
        }
        for (std::size_t k = count - 2; k > 0; --k)
            second_[k] =
                (right[k] - (points[k + 1].X - points[k].X) * second_[k + 1]) / diagonal[k];
    }

    // Rising `x` only.
    double At(double x) {
        while (points_[interval_].X < x && interval_ + 1 < second_.size())
            ++interval_;
        const std::size_t k = interval_;
        const double h = points_[k].X - points_[k - 1].X;
        const double d = (second_[k] - second_[k - 1]) / h;
        const double slope =
            h * second_[k] / 2 - h * h * d / 6 + (points_[k].Y - points_[k - 1].Y) / h;
        const double t = x - points_[k].X;
        return points_[k].Y + slope * t + second_[k] * t * t / 2 + d * t * t * t / 6;
    }

private:
    const Point* points_;
    std::vector<double> second_;
    std::size_t interval_ = 1;
};

void DrawParabolas(const std::vector<Point>& points, ViewData::Entries& curve) {
    for (std::size_t k = 1; k + 1 < points.size(); ++k)
        for (auto column = static_cast<std::int32_t>(points[k - 1].X);
             column <= static_cast<std::int32_t>(points[k].X); ++column)
            curve[static_cast<std::size_t>(column)] =
                std::clamp(Truncated(Parabola(points[k - 1], points[k], points[k + 1], column)),
                           -32768, 32768);
}

void DrawSpline(const std::vector<Point>& points, ViewData::Entries& curve) {
    Spline spline(points.data(), points.size() - 1);
    for (std::int32_t column = 0; column < points[points.size() - 2].X; ++column)
        curve[static_cast<std::size_t>(column)] = Truncated(spline.At(column));
}

void DrawCurve(const std::vector<Point>& points, ViewData::Entries& curve, std::int32_t last,
               InterpolationMode mode) {
    if (points.size() < 3) return;
    if (mode == InterpolationMode::Parabola || points.size() < 4)
        DrawParabolas(points, curve);
    else
        DrawSpline(points, curve);
    // Neither knows what follows the last point but one.
    const Point* end = &points.back();
    for (auto column = static_cast<std::int32_t>(end[-1].X); column <= last; ++column)
        curve[static_cast<std::size_t>(column)] =
            Truncated(Parabola(end[-2], end[-1], end[0], column));
}

}  // namespace

std::int16_t CloseUpLevelOf(double bytesPerColumn, std::int32_t frequency,
                            const CloseUpLimits& limits) {
    const double farthest = frequency < 8000    ? limits.Low
                            : frequency > 23000 ? limits.High
                                                : limits.Between;
    if (bytesPerColumn <= 0 || bytesPerColumn >= farthest) return 0;
    if (bytesPerColumn > 0.3) return 1;
    if (bytesPerColumn > 0.1) return 2;
    if (bytesPerColumn > 0.02) return 3;
    return 4;
}

void BuildCloseUpCurve(ViewData& data, std::int32_t channels, std::int32_t waveWidth,
                       InterpolationMode mode) {
    const std::int32_t last = std::min(waveWidth, data.Columns() - 1);
    for (std::size_t channel = 0; channel < static_cast<std::size_t>(channels); ++channel)
        DrawCurve(CollectPoints(data.Low[channel], data.High[channel], last), data.CloseUp[channel],
                  last, mode);
}

}  // namespace mavrin2::view
