#pragma once

#include <bit>
#include <cstddef>
#include <vector>

namespace mavrin2::kestrin {

// The past of a sound: a ring whose size is a power of two. Reading further back than `longest`
// is an error of the caller; before the first sample it was silent.
class DelayLine {
public:
    explicit DelayLine(std::size_t longest)
        : ring_(std::bit_ceil(longest + 1)), mask_(ring_.size() - 1) {}

    void Write(float value) { ring_[next_++ & mask_] = value; }
    // The value written `delay` writes ago; 1 is the last one.
    float Read(std::size_t delay) const { return ring_[(next_ - delay) & mask_]; }

    // Between the values written `delay` and `delay + 1` writes ago, on the cubic curve through
    // these two and their neighbours (Catmull and Rom). `share` of the way to the older one.
    float Read(std::size_t delay, float share) const {
        const float before = Read(delay - 1);
        const float from = Read(delay);
        const float to = Read(delay + 1);
        const float after = Read(delay + 2);
        const float slope = 0.5F * (to - before);
        const float second = before - 2.5F * from + 2 * to - 0.5F * after;
        const float third = 0.5F * (after - before) + 1.5F * (from - to);
        return from + share * (slope + share * (second + share * third));
    }

private:
    std::vector<float> ring_;
    std::size_t mask_;
    std::size_t next_ = 0;
};

}  // namespace mavrin2::kestrin
