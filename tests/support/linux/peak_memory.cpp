#include "tests/support/peak_memory.h"

#include <sys/resource.h>

namespace mavrin2::tests {

std::int64_t PeakMemory() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return std::int64_t{usage.ru_maxrss} * 1024;
}

}  // namespace mavrin2::tests
