#include "hosts/script/commands/progress_bar.h"

#include <gtest/gtest.h>

#include <string>

namespace mavrin2::script {
namespace {

using std::chrono::milliseconds;

class Bar : public testing::Test {
protected:
    // What was written since this was asked for last.
    std::string Written() {
        std::string text;
        std::fseek(file_, 0, SEEK_SET);
        for (int c = std::fgetc(file_); c != EOF; c = std::fgetc(file_))
            text += static_cast<char>(c);
        std::fclose(file_);
        file_ = std::tmpfile();
        return text;
    }
    ~Bar() override { std::fclose(file_); }

    std::FILE* file_ = std::tmpfile();
    std::chrono::steady_clock::time_point now_{};
};

TEST_F(Bar, AppearsOnceTheWorkTakesLongAndIsWipedAway) {
    ProgressBar bar(file_, [&] { return now_; });
    bar.Show("Reading", 10);
    bar.Clear();
    EXPECT_EQ(Written(), "") << "not worth it yet";
}

TEST_F(Bar, DrawsEveryPercentageOnce) {
    {
        ProgressBar bar(file_, [&] { return now_; });
        now_ += milliseconds(300);
        bar.Show("Reading", 50);
        bar.Show("Reading", 50);
        bar.Show("Doing", 120);
        bar.Show("Do", -3);
    }
    const std::string half(20, '#');
    const std::string none(20, ' ');
    const std::string last = "\rDo [" + none + none + "] 0 %";
    EXPECT_EQ(Written(), "\rReading [" + half + none + "] 50 %" +      //
                             "\rDoing [" + half + half + "] 100 % " +  //
                             last + "     " + "\r" + std::string(last.size() - 1, ' ') + "\r");
}

TEST_F(Bar, DrawsNothingWithoutATerminal) {
    ProgressBar bar(nullptr, [&] { return now_; });
    now_ += milliseconds(300);
    bar.Show("Reading", 50);
    bar.Clear();
    EXPECT_EQ(IfTerminal(file_), nullptr);
}

}  // namespace
}  // namespace mavrin2::script
