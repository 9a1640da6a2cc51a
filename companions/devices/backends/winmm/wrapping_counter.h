#pragma once

#include <cstdint>

namespace mavrin2::devices {

// Counts on where a 32-bit counter begins again at 0. To be read before that has advanced by 2^31.
class WrappingCounter {
public:
    // From this reading on.
    void Restart(std::uint32_t reading) {
        last_ = reading;
        count_ = 0;
    }
    // The count at this reading. One that is a little behind the last, as some drivers report,
    // leaves it as it is.
    std::int64_t Advance(std::uint32_t reading) {
        const auto step = static_cast<std::int32_t>(reading - last_);
        if (step > 0) {
            last_ = reading;
            count_ += step;
        }
        return count_;
    }

private:
    std::uint32_t last_ = 0;
    std::int64_t count_ = 0;
};

}  // namespace mavrin2::devices
