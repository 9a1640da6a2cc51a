#pragma once

#include <chrono>
#include <functional>

#include "platform/posting.h"

namespace mavrin2::tests {

// Delivers events on this thread until a condition holds. False if it does not in that time.
inline bool PumpUntil(const std::function<bool()>& condition,
                      std::chrono::milliseconds patience = std::chrono::seconds(10)) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        platform::PostingQueue::OfThisThread()->Pump(std::chrono::milliseconds(2));
    }
    return true;
}

}  // namespace mavrin2::tests
