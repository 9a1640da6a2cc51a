#pragma once

#include <array>
#include <cstddef>

namespace mavrin2::view {

// Hartley transforms of 64 real values for many signals at once: entry i of a batch holds value i
// of every signal. H(k) = Σ x(i) (cos + sin)(2π i k / 64).
class Hartley {
public:
    static constexpr std::size_t Size = 64;
    // Signals that are transformed together.
    static constexpr std::size_t Batch = 16;
    using Values = std::array<std::array<float, Batch>, Size>;

    Hartley();

    // In place.
    void Transform(Values& values) const;

private:
    using Signals = std::array<float, Batch>;
    struct Turn {
        float Cos, Sin;
    };
    // One frequency of the four parts that a transform is put together from: turned by the part's
    // angle, and by that angle and a right one more.
    struct Turned {
        std::array<Signals, 4> Once, Further;
    };

    Turned TurnParts(const Signals* parts, std::size_t quarter, std::size_t k) const;
    static void PutTogether(const Turned& turned, Signals* parts, std::size_t quarter,
                            std::size_t k);

    std::array<Turn, Size> turns_;
    std::array<std::size_t, Size>
        reversed_;  // the digits of an index, in base 4, the other way round
};

}  // namespace mavrin2::view
