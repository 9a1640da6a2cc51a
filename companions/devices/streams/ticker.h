#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <thread>

namespace mavrin2::devices {

// A thread that does one thing again and again.
class Ticker {
public:
    // How long to wait for the next time; nothing to end.
    using Step = std::function<std::optional<std::chrono::milliseconds>()>;

    explicit Ticker(Step step);
    // Waits until a step under way is done.
    ~Ticker() = default;

private:
    std::jthread thread_;
};

}  // namespace mavrin2::devices
