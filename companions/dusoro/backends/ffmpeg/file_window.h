#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/files.h"

namespace mavrin2::dusoro {

// A look at one place after another in a file, read in pieces that are large enough to cost next to
// nothing.
class FileWindow {
public:
    explicit FileWindow(platform::File& file) : file_(file), end_(file.Length().value_or(0)) {}

    std::int64_t End() const { return end_; }

    // `count` bytes at `offset`, until the next call; null when they are not all there.
    const std::uint8_t* At(std::int64_t offset, std::size_t count) {
        const auto wanted = static_cast<std::int64_t>(count);
        if (offset < 0 || offset > end_ - wanted) return nullptr;
        if (offset < start_ || offset + wanted > start_ + Filled()) {
            bytes_.resize(kSize);
            const auto got = file_.Read(offset, std::as_writable_bytes(std::span(bytes_)));
            start_ = offset;
            bytes_.resize(got.value_or(0));
            if (bytes_.size() < count) return nullptr;
        }
        return bytes_.data() + (offset - start_);
    }

private:
    static constexpr std::size_t kSize = 1 << 18;
    std::int64_t Filled() const { return static_cast<std::int64_t>(bytes_.size()); }

    platform::File& file_;
    std::int64_t end_;
    std::int64_t start_ = 0;
    std::vector<std::uint8_t> bytes_;
};

}  // namespace mavrin2::dusoro
