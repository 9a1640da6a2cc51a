#pragma once

#include <chrono>
#include <cstdio>
#include <functional>
#include <string_view>

namespace mavrin2::script {

// A progress bar on a terminal, for work that takes more than a moment. The destructor erases it.
class ProgressBar {
public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    // Draws nothing if `stream` is null.
    explicit ProgressBar(std::FILE* stream, Clock clock = &std::chrono::steady_clock::now);
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    ~ProgressBar() { Clear(); }

    // `work` names the operation; `percent` is limited to 0 … 100.
    void Show(std::string_view work, int percent);
    void Clear();

private:
    std::FILE* stream_;
    Clock clock_;
    std::chrono::steady_clock::time_point start_;
    int shownPercent_ = -1;
    std::size_t shownWidth_ = 0;
};

}  // namespace mavrin2::script
