#include "hosts/script/commands/progress_bar.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/terminal.h"

namespace mavrin2::script {
namespace {

// For less the bar would only flicker.
constexpr std::chrono::milliseconds kPatience(250);
constexpr int kMostCells = 40;

// Columns for a line that does not wrap: one that wraps could not be erased.
int Room(std::FILE* stream) {
    return std::max(platform::TerminalWidth(stream).value_or(80) - 1, 0);
}

// The line has no bar where the terminal is narrow.
std::string Line(std::string_view work, int percent, int width) {
    const std::string number = std::to_string(percent) + " %";
    std::string line(work);
    const int cells =
        std::min(kMostCells, width - static_cast<int>(line.size() + number.size() + 4));
    if (cells > 0) {
        const int filled = percent * cells / 100;
        line += " [" + std::string(static_cast<std::size_t>(filled), '#') +
                std::string(static_cast<std::size_t>(cells - filled), ' ') + "]";
    }
    line += " " + number;
    return line.substr(0, static_cast<std::size_t>(width));
}

}  // namespace

ProgressBar::ProgressBar(std::FILE* stream, Clock clock)
    : stream_(stream), clock_(std::move(clock)), start_(clock_()) {}

void ProgressBar::Show(std::string_view work, int percent) {
    percent = std::clamp(percent, 0, 100);
    if (!stream_ || percent == shownPercent_ || clock_() - start_ < kPatience) return;
    const int room = Room(stream_);
    std::string line = Line(work, percent, room);
    shownWidth_ = std::min(shownWidth_, static_cast<std::size_t>(room));
    const std::size_t width = line.size();
    if (width < shownWidth_) line.append(shownWidth_ - width, ' ');
    std::fprintf(stream_, "\r%s", line.c_str());
    std::fflush(stream_);
    shownPercent_ = percent;
    shownWidth_ = width;
}

void ProgressBar::Clear() {
    if (shownWidth_ == 0) return;
    std::fprintf(stream_, "\r%*s\r", std::min(static_cast<int>(shownWidth_), Room(stream_)), "");
    std::fflush(stream_);
    shownPercent_ = -1;
    shownWidth_ = 0;
}

}  // namespace mavrin2::script
