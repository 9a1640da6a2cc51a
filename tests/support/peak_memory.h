#pragma once

#include <cstdint>

namespace mavrin2::tests {

// The most memory that this process has taken at any time, in bytes.
std::int64_t PeakMemory();

}  // namespace mavrin2::tests
