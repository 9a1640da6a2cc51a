#pragma once

#include <cstdlib>

namespace mavrin2::tests {

// A number for a test with random input: `usual`, or what an environment variable wants.
inline int WantedCount(const char* variable, int usual) {
    const char* wanted = std::getenv(variable);
    return wanted ? std::atoi(wanted) : usual;
}

}  // namespace mavrin2::tests
