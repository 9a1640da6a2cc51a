#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace mavrin2::kestrin {

// The past of a sound in one run of memory, so that any stretch of it can be read at once. Before
// the first sample it was silent.
class History {
public:
    // Up to `longest` samples before the last one appended can be read.
    explicit History(std::size_t longest)
        : longest_(longest + 1), samples_(2 * longest_ + kRoom), end_(longest_) {}

    void Append(std::span<const float> samples) {
        if (end_ + samples.size() > samples_.size()) {
            std::copy(samples_.begin() + static_cast<std::ptrdiff_t>(end_ - longest_),
                      samples_.begin() + static_cast<std::ptrdiff_t>(end_), samples_.begin());
            end_ = longest_;
        }
        std::copy(samples.begin(), samples.end(),
                  samples_.begin() + static_cast<std::ptrdiff_t>(end_));
        end_ += samples.size();
    }

    // Past the last sample: End()[−1] is that one, End()[−2] the one before.
    const float* End() const { return samples_.data() + end_; }

    // The most samples that may be appended at once.
    static constexpr std::size_t kRoom = 4096;

private:
    std::size_t longest_;
    std::vector<float> samples_;
    std::size_t end_;
};

}  // namespace mavrin2::kestrin
