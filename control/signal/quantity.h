#pragma once

#include <compare>
#include <cstdint>

namespace mavrin2::signal {

// A signed 64-bit count of one unit. Two units do not mix; Count() is the number itself.
template <class Unit>
class Quantity {
public:
    constexpr Quantity() = default;
    constexpr explicit Quantity(std::int64_t count) : count_(count) {}

    constexpr std::int64_t Count() const { return count_; }

    friend constexpr bool operator==(Quantity a, Quantity b) { return a.count_ == b.count_; }
    friend constexpr std::strong_ordering operator<=>(Quantity a, Quantity b) {
        return a.count_ <=> b.count_;
    }
    friend constexpr Quantity operator+(Quantity a, Quantity b) {
        return Quantity(a.count_ + b.count_);
    }
    friend constexpr Quantity operator-(Quantity a, Quantity b) {
        return Quantity(a.count_ - b.count_);
    }

private:
    std::int64_t count_ = 0;
};

// Positions and lengths within the interleaved 16-bit samples of a document.
using Bytes = Quantity<struct ByteUnit>;
// The same as hosts see them: one frame holds a sample of every channel.
using Frames = Quantity<struct FrameUnit>;

}  // namespace mavrin2::signal
