#include "hosts/script/commands/progress_bar.h"

#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

#include <string>

namespace mavrin2::script {
namespace {

using std::chrono::milliseconds;

// What a bar writes to a terminal of `columns` in 300 ms of work, and when it is erased.
std::string Drawn(unsigned short columns, auto&& show) {
    int master = -1;
    int slave = -1;
    const winsize size{24, columns, 0, 0};
    if (::openpty(&master, &slave, nullptr, nullptr, &size) != 0) return "no terminal";
    std::FILE* const terminal = ::fdopen(slave, "w");
    std::chrono::steady_clock::time_point now{};
    {
        ProgressBar bar(terminal, [&] { return now; });
        bar.Show("Early", 10);
        now += milliseconds(300);
        show(bar);
    }
    std::fclose(terminal);
    std::string text;
    char buffer[256];
    for (ssize_t count = 0; (count = ::read(master, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(count));
    ::close(master);
    return text;
}

TEST(ProgressBars, AppearWhenWorkTakesLongAndAreErased) {
    const std::string half(20, '#');
    const std::string none(20, ' ');
    const std::string last = "\rDo [" + none + none + "] 0 %";
    const auto show = [](ProgressBar& bar) {
        bar.Show("Reading", 50);
        bar.Show("Reading", 50);
        bar.Show("Doing", 120);
        bar.Show("Do", -3);
    };
    EXPECT_EQ(Drawn(80, show), "\rReading [" + half + none + "] 50 %" +      //
                                   "\rDoing [" + half + half + "] 100 % " +  //
                                   last + "     " + "\r" + std::string(last.size() - 1, ' ') +
                                   "\r");
    EXPECT_EQ(Drawn(80, [](ProgressBar&) {}), "") << "work of a moment needs no bar";
}

TEST(ProgressBars, FitTheTerminal) {
    const auto show = [](ProgressBar& bar) { bar.Show("Reading", 50); };
    EXPECT_EQ(Drawn(25, show), "\rReading [####     ] 50 %\r" + std::string(24, ' ') + "\r");
    EXPECT_EQ(Drawn(16, show), "\rReading 50 %\r" + std::string(12, ' ') + "\r");
    EXPECT_EQ(Drawn(6, show), "\rReadi\r     \r");
}

}  // namespace
}  // namespace mavrin2::script
