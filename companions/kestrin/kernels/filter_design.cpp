#include "companions/kestrin/kernels/filter_design.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <span>

namespace mavrin2::kestrin {
namespace {

using Complex = std::complex<double>;
using Roots = std::vector<Complex>;

struct ZerosAndPoles {
    Roots Zeros;
    Roots Poles;
    double Gain = 1;

    std::size_t Excess() const { return Poles.size() - Zeros.size(); }
};

Complex ProductOfDifferences(double from, const Roots& roots) {
    Complex product = 1;
    for (const Complex& root : roots)
        product *= from - root;
    return product;
}

Roots ButterworthPoles(int order) {
    Roots poles;
    for (int k = 0; k < order; ++k)
        poles.push_back(std::polar(1.0, std::numbers::pi * (2 * k + order + 1) / (2.0 * order)));
    return poles;
}

// Low-pass with its edge at 1.
ZerosAndPoles Butterworth(int order) {
    return {{}, ButterworthPoles(order), 1};
}

// `gain` at 0, its square root at 1, 1 far above.
ZerosAndPoles Shelf(int order, double gain) {
    const double reach = std::pow(gain, 1.0 / (2 * order));
    ZerosAndPoles shelf{ButterworthPoles(order), ButterworthPoles(order), 1};
    for (Complex& zero : shelf.Zeros)
        zero *= reach;
    for (Complex& pole : shelf.Poles)
        pole /= reach;
    return shelf;
}

ZerosAndPoles ToLowPass(ZerosAndPoles filter, double edge) {
    filter.Gain *= std::pow(edge, static_cast<double>(filter.Excess()));
    for (Complex& root : filter.Zeros)
        root *= edge;
    for (Complex& root : filter.Poles)
        root *= edge;
    return filter;
}

double GainOfInversion(const ZerosAndPoles& filter) {
    return (ProductOfDifferences(0, filter.Zeros) / ProductOfDifferences(0, filter.Poles)).real();
}

ZerosAndPoles ToHighPass(ZerosAndPoles filter, double edge) {
    filter.Gain *= GainOfInversion(filter);
    const std::size_t excess = filter.Excess();
    for (Complex& root : filter.Zeros)
        root = edge / root;
    for (Complex& root : filter.Poles)
        root = edge / root;
    filter.Zeros.insert(filter.Zeros.end(), excess, Complex(0));
    return filter;
}

// Each root becomes two, around the middle of a band.
Roots Split(const Roots& roots, double middle) {
    Roots split;
    for (const Complex& root : roots) {
        const Complex distance = std::sqrt(root * root - middle * middle);
        split.push_back(root + distance);
        split.push_back(root - distance);
    }
    return split;
}

ZerosAndPoles ToBandPass(ZerosAndPoles filter, double middle, double width) {
    const std::size_t excess = filter.Excess();
    filter = ToLowPass(std::move(filter), width / 2);
    filter.Gain *= std::pow(2.0, static_cast<double>(excess));
    filter.Zeros = Split(filter.Zeros, middle);
    filter.Poles = Split(filter.Poles, middle);
    filter.Zeros.insert(filter.Zeros.end(), excess, Complex(0));
    return filter;
}

ZerosAndPoles ToBandStop(ZerosAndPoles filter, double middle, double width) {
    const std::size_t excess = filter.Excess();
    filter.Gain *= GainOfInversion(filter);
    for (Complex& root : filter.Zeros)
        root = width / 2 / root;
    for (Complex& root : filter.Poles)
        root = width / 2 / root;
    filter.Zeros = Split(filter.Zeros, middle);
    filter.Poles = Split(filter.Poles, middle);
    filter.Zeros.insert(filter.Zeros.end(), excess, Complex(0, middle));
    filter.Zeros.insert(filter.Zeros.end(), excess, Complex(0, -middle));
    return filter;
}

// Frequencies are those that Warped gives: the tangent of half the angle, twice.
ZerosAndPoles Bilinear(ZerosAndPoles filter) {
    filter.Gain *=
        (ProductOfDifferences(2, filter.Zeros) / ProductOfDifferences(2, filter.Poles)).real();
    const std::size_t excess = filter.Excess();
    for (Complex& root : filter.Zeros)
        root = (2.0 + root) / (2.0 - root);
    for (Complex& root : filter.Poles)
        root = (2.0 + root) / (2.0 - root);
    filter.Zeros.insert(filter.Zeros.end(), excess, Complex(-1));
    return filter;
}

// z² + First · z + Second
struct Quadratic {
    double First;
    double Second;
};

// Pairs of conjugates, and real roots two by two. The number of roots is even.
std::vector<Quadratic> ToQuadratics(const Roots& roots) {
    constexpr double kReal = 1e-9;
    std::vector<Quadratic> quadratics;
    std::vector<double> reals;
    for (const Complex& root : roots) {
        if (std::abs(root.imag()) < kReal)
            reals.push_back(root.real());
        else if (root.imag() > 0)
            quadratics.push_back({-2 * root.real(), std::norm(root)});
    }
    std::sort(reals.begin(), reals.end());
    // The outermost with each other: a low-pass and a high-pass edge of a wide band share one.
    for (std::size_t i = 0; i < reals.size() / 2; ++i) {
        const double low = reals[i];
        const double high = reals[reals.size() - 1 - i];
        quadratics.push_back({-(low + high), low * high});
    }
    return quadratics;
}

std::vector<FilterSection> ToSections(const ZerosAndPoles& analog) {
    const ZerosAndPoles digital = Bilinear(analog);
    const auto poles = ToQuadratics(digital.Poles);
    auto zeros = ToQuadratics(digital.Zeros);
    std::vector<FilterSection> sections;
    for (const Quadratic& pole : poles) {
        // Each with the zeros most like it, so that no section lifts what the next one must lower.
        const auto nearest =
            std::min_element(zeros.begin(), zeros.end(), [&](const auto& a, const auto& b) {
                const auto distance = [&](const Quadratic& zero) {
                    return std::hypot(zero.First - pole.First, zero.Second - pole.Second);
                };
                return distance(a) < distance(b);
            });
        sections.push_back({1, nearest->First, nearest->Second, pole.First, pole.Second});
        zeros.erase(nearest);
    }
    sections.front().B0 *= digital.Gain;
    sections.front().B1 *= digital.Gain;
    sections.front().B2 *= digital.Gain;
    return sections;
}

double GainOf(double decibels) {
    return std::pow(10.0, decibels / 20);
}

}  // namespace

double FilterDesign::Warped() const {
    return 2 * std::tan(std::numbers::pi * frequency_ / rate_);
}

// The bilinear transformation presses bands together towards the end of the spectrum; this widens
// them by as much.
double FilterDesign::WarpedWidth(double octaves) const {
    const double angle = 2 * std::numbers::pi * frequency_ / rate_;
    return Warped() * 2 *
           std::sinh(std::numbers::ln2 / 2 * octaves * std::min(angle / std::sin(angle), 20.0));
}

std::vector<FilterSection> FilterDesign::LowPass() const {
    return ToSections(ToLowPass(Butterworth(2 * sections_), Warped()));
}

std::vector<FilterSection> FilterDesign::HighPass() const {
    return ToSections(ToHighPass(Butterworth(2 * sections_), Warped()));
}

std::vector<FilterSection> FilterDesign::BandPass(double octaves) const {
    return ToSections(ToBandPass(Butterworth(sections_), Warped(), WarpedWidth(octaves)));
}

std::vector<FilterSection> FilterDesign::Notch(double octaves) const {
    return ToSections(ToBandStop(Butterworth(sections_), Warped(), WarpedWidth(octaves)));
}

std::vector<FilterSection> FilterDesign::Bell(double octaves, double decibels) const {
    return ToSections(
        ToBandPass(Shelf(sections_, GainOf(decibels)), Warped(), WarpedWidth(octaves)));
}

std::vector<FilterSection> FilterDesign::LowShelf(double decibels) const {
    return ToSections(ToLowPass(Shelf(2 * sections_, GainOf(decibels)), Warped()));
}

std::vector<FilterSection> FilterDesign::HighShelf(double decibels) const {
    return ToSections(ToHighPass(Shelf(2 * sections_, GainOf(decibels)), Warped()));
}

}  // namespace mavrin2::kestrin
