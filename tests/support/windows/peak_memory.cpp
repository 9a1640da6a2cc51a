#include "tests/support/peak_memory.h"

// First, since the next one needs its types.
#include <windows.h>

#include <psapi.h>

namespace mavrin2::tests {

std::int64_t PeakMemory() {
    PROCESS_MEMORY_COUNTERS counters{};
    ::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<std::int64_t>(counters.PeakWorkingSetSize);
}

}  // namespace mavrin2::tests
