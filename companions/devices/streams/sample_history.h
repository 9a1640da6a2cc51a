#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace mavrin2::devices {

// Peaks of the two channels, 0 … 32767; of a mono sound both are the same.
struct Levels {
    std::int32_t Left = 0;
    std::int32_t Right = 0;

    void Include(const Levels& other);
};

// The last frames of a stream, by their number from its beginning.
class SampleHistory {
public:
    SampleHistory(std::int32_t channels, std::int64_t frames);

    // Whole interleaved frames.
    void Append(std::span<const std::int16_t> samples);
    std::int64_t End() const { return end_; }
    // Of the frames from `first` to before `last`, as far as they are kept.
    Levels PeaksOf(std::int64_t first, std::int64_t last) const;
    // The `count` frames before `last`, fewer at the beginning or where fewer are kept.
    std::vector<std::int16_t> Before(std::int64_t last, std::int64_t count) const;

private:
    std::int64_t First() const;
    // Calls `use` with the stretches of samples from one frame to before another.
    template <class Use>
    void Visit(std::int64_t first, std::int64_t last, Use use) const;

    const std::int32_t channels_;
    const std::int64_t capacity_;  // frames
    std::vector<std::int16_t> ring_;
    std::int64_t end_ = 0;
};

}  // namespace mavrin2::devices
