#include "hosts/script/commands/progress_bar.h"

#include <unistd.h>

#include <algorithm>
#include <string>
#include <utility>

namespace mavrin2::script {
namespace {

// What is done sooner would only flicker.
constexpr std::chrono::milliseconds kPatience(250);
constexpr int kCells = 40;

}  // namespace

ProgressBar::ProgressBar(std::FILE* stream, Clock clock)
    : stream_(stream), clock_(std::move(clock)), start_(clock_()) {}

void ProgressBar::Show(std::string_view work, int percent) {
    percent = std::clamp(percent, 0, 100);
    if (!stream_ || percent == shownPercent_ || clock_() - start_ < kPatience) return;
    const int filled = percent * kCells / 100;
    std::string line(work);
    line += " [" + std::string(static_cast<std::size_t>(filled), '#') +
            std::string(static_cast<std::size_t>(kCells - filled), ' ') + "] " +
            std::to_string(percent) + " %";
    const std::size_t width = line.size();
    if (width < shownWidth_) line.append(shownWidth_ - width, ' ');
    std::fprintf(stream_, "\r%s", line.c_str());
    std::fflush(stream_);
    shownPercent_ = percent;
    shownWidth_ = width;
}

void ProgressBar::Clear() {
    if (shownWidth_ == 0) return;
    std::fprintf(stream_, "\r%*s\r", static_cast<int>(shownWidth_), "");
    std::fflush(stream_);
    shownPercent_ = -1;
    shownWidth_ = 0;
}

std::FILE* IfTerminal(std::FILE* stream) {
    return ::isatty(::fileno(stream)) != 0 ? stream : nullptr;
}

}  // namespace mavrin2::script
