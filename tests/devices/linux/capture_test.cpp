#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <thread>

#include "tests/devices/recording_host.h"
#include "tests/support/sound_server/sound_server.h"

namespace mavrin2::rimbal {
namespace {

using namespace std::chrono_literals;

TEST_F(Capture, GivesWhatWasPlayedToItsSource) {
    tests::TestServer server;
    const Samples sound = tests::Noise(100'000);
    ASSERT_EQ(Start(3000), ErrorConstants::NOERRORS);
    server.Play(sound);
    Pass(300ms);
    automation::SafeArray<std::int16_t> recent;
    recorder_->GetRecentSamples(44'100, recent.Put());
    EXPECT_EQ(automation::ArrayView<std::int16_t>(recent.Get()).Elements().size(), 88'200U);
    const LONG position = Positions.back();
    Stop();
    EXPECT_EQ(tests::Trimmed(Recorded), sound);
    EXPECT_EQ(Peaks.Left, 32767);
    EXPECT_LE(position, static_cast<LONG>(Recorded.size() / 2));
    EXPECT_GT(position, static_cast<LONG>(Recorded.size() / 2) - 8820);
    // Whole blocks, then what is left of one, then nothing.
    ASSERT_GT(Blocks.size(), 10U);
    EXPECT_TRUE(std::all_of(Blocks.begin(), Blocks.end() - 1,
                            [](std::size_t samples) { return samples == 6000; }));
    EXPECT_LE(Blocks.back(), 6000U);
    const std::size_t events = Positions.size();
    Pass(100ms);
    EXPECT_EQ(Positions.size(), events);
    EXPECT_FALSE(ReadBlock());
}

TEST_F(Capture, KeepsWhatItHasWhenTheHostIsLateAndWhenTheServerGoes) {
    tests::TestServer server;
    const Samples sound = tests::Noise(60'000);
    ASSERT_EQ(Start(1000), ErrorConstants::NOERRORS);
    server.Play(sound);
    std::this_thread::sleep_for(1s);
    server.Kill();
    Pass(500ms);
    const LONG standing = Positions.back();
    Pass(200ms);
    EXPECT_EQ(Positions.back(), standing);
    Stop();
    EXPECT_EQ(tests::Trimmed(Recorded), sound);
    EXPECT_EQ(static_cast<std::size_t>(standing) * 2, Recorded.size());
}

TEST_F(Capture, IsNeverAttenuatedByWhatTheServerRemembers) {
    tests::TestServer server;
    server.Control({"load-module", "module-stream-restore"});
    ASSERT_EQ(Start(1000), ErrorConstants::NOERRORS);
    server.Control({"set-source-output-volume", "0", "50%"});
    server.Control({"set-source-output-mute", "0", "1"});
    Stop();
    const Samples sound = tests::Noise(20'000);
    ASSERT_EQ(Start(1000), ErrorConstants::NOERRORS);
    server.Play(sound);
    Pass(300ms);
    Stop();
    EXPECT_EQ(tests::Trimmed(Recorded), sound);
}

TEST_F(Capture, FailsSoonWhereTheServerHangs) {
    tests::TestServer server;
    ASSERT_EQ(Start(1000), ErrorConstants::NOERRORS);
    server.Send(SIGSTOP);
    const auto begin = std::chrono::steady_clock::now();
    recorder_->StopDevice();
    EXPECT_EQ(Start(1000), ErrorConstants::INPDRIVER);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
    server.Send(SIGCONT);
    EXPECT_EQ(Start(1000), ErrorConstants::NOERRORS);
}

TEST_F(Capture, RecordsSilenceInRealTimeWithoutAServer) {
    const tests::NoServer none;
    ASSERT_EQ(Start(0, 8000, 1), ErrorConstants::NOERRORS);
    EXPECT_TRUE(PumpUntil([&] { return Blocks.size() == 2; }, 3s));
    EXPECT_EQ(Blocks, (std::vector<std::size_t>{4000, 4000}));
    Pass(100ms);
    Stop();
    EXPECT_GT(Recorded.size(), 8000U);
    EXPECT_LT(Recorded.size(), 12'000U);
    EXPECT_EQ(tests::Trimmed(Recorded), Samples());
}

TEST_F(Capture, StoresAndRaisesWhatTheChainMakesOfIt) {
    tests::TestServer server;
    recorder_->put_AccuEnabled(VARIANT_TRUE);
    recorder_->put_AGCEnabled(VARIANT_TRUE);
    recorder_->put_AGCHighLevel(10'000);
    recorder_->put_AGCAttackTime(50);
    ASSERT_EQ(Start(1000), ErrorConstants::NOERRORS);
    Pass(200ms);
    EXPECT_EQ(Positions.back(), 0);
    server.Play(tests::Noise(60'000));
    EXPECT_TRUE(PumpUntil([&] { return Positions.back() > 0 && !Gains.empty(); }));
    EXPECT_LT(Gains.back(), 100);
    LONG level = 0;
    recorder_->put_AccuReleaseLevel(99'999);
    recorder_->get_AccuReleaseLevel(&level);
    EXPECT_EQ(level, 32767);
    recorder_->put_AccuReleaseTime(-3);
    recorder_->get_AccuReleaseTime(&level);
    EXPECT_EQ(level, 0);
    FLOAT frequency = 0;
    recorder_->put_NotchFilterFrequency(-1);
    recorder_->get_NotchFilterFrequency(&frequency);
    EXPECT_EQ(frequency, -1);
}

}  // namespace
}  // namespace mavrin2::rimbal
