#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace mavrin2::devices {

// A thread that does one thing again and again.
class Ticker {
public:
    // How long to wait for the next time; nothing to end.
    using Step = std::function<std::optional<std::chrono::milliseconds>()>;

    explicit Ticker(Step step);
    Ticker(const Ticker&) = delete;
    Ticker& operator=(const Ticker&) = delete;
    // Waits until a step under way is done.
    ~Ticker();

private:
    void Run();

    const Step step_;
    std::mutex mutex_;
    std::condition_variable changed_;
    bool ending_ = false;
    std::thread thread_;
};

}  // namespace mavrin2::devices
