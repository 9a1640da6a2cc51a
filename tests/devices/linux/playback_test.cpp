#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <thread>

#include "tests/devices/playing_host.h"
#include "tests/support/sound_server/sound_server.h"

namespace mavrin2::velto {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

TEST_F(Playback, ReachesTheDeviceUnchanged) {
    tests::TestServer server;
    for (const std::size_t frames : {100'000, 1, 4410}) {
        Sound = tests::Noise(frames * 2);
        Block = frames == 4410 ? 100 : 22050;
        server.StartMonitor();
        Play();
        ASSERT_TRUE(Ended()) << frames;
        EXPECT_EQ(Positions.back(), static_cast<LONG>(frames));
        EXPECT_TRUE(std::is_sorted(Positions.begin(), Positions.end()));
        EXPECT_EQ(tests::Trimmed(server.StopMonitor()), Sound) << frames;
        EXPECT_EQ(Ends, 1);
        player_->StopDevice();
    }
}

// Runs a call and says how long it took, in seconds.
double SecondsOf(const std::function<void()>& call) {
    const auto begin = steady_clock::now();
    call();
    return std::chrono::duration<double>(steady_clock::now() - begin).count();
}

// A call gives up after one second; a busy machine adds to that.
constexpr double kPatience = 3;

TEST_F(Playback, PlaysTheChosenChannels) {
    tests::TestServer server;
    Sound = tests::Noise(20'000);
    for (const LONG choice : {1, 2, 3, 0}) {
        Samples expected = Sound;
        for (std::size_t i = 0; i < expected.size(); ++i)
            if (choice == (i % 2 == 0 ? 2 : 1)) expected[i] = 0;
        player_->SetOutputChannels(choice);
        server.StartMonitor();
        Peaks = {};
        Play();
        ASSERT_TRUE(Ended());
        EXPECT_EQ(tests::Trimmed(server.StopMonitor()), tests::Trimmed(expected)) << choice;
        EXPECT_EQ(Peaks.Left > 0, choice != 2);
        EXPECT_EQ(Peaks.Right > 0, choice != 1);
    }
    Sound = {100, -32768, 5};
    Peaks = {};
    Play(44100, 1);
    ASSERT_TRUE(Ended());
    EXPECT_EQ(Peaks.Left, 32767);
    EXPECT_EQ(Peaks.Right, 32767);
}

TEST_F(Playback, IsSilentWhileTheHostIsLateAndThenGoesOn) {
    tests::TestServer server;
    Sound = tests::Noise(60'000);
    Block = 10'000;
    server.StartMonitor();
    Play();
    std::this_thread::sleep_for(1500ms);
    platform::PostingQueue::OfThisThread()->Pump(0ms);
    EXPECT_EQ(Positions, std::vector<LONG>{20'000});
    ASSERT_TRUE(Ended());
    EXPECT_EQ(Positions.back(), 30'000);
    // The two blocks, silence, the third.
    const Samples heard = tests::Trimmed(server.StopMonitor());
    ASSERT_GT(heard.size(), Sound.size() + 44100);
    EXPECT_TRUE(std::equal(heard.begin(), heard.begin() + 40'000, Sound.begin()));
    EXPECT_TRUE(std::equal(heard.end() - 20'000, heard.end(), Sound.end() - 20'000));
}

TEST_F(Playback, RaisesNothingAfterStopDevice) {
    tests::TestServer server;
    Sound = tests::Noise(200'000);
    Block = 2000;
    player_->put_TimerInterval(5);
    // In events of each kind, and with events waiting.
    for (const auto when : {VeltoEvent::BlockDone, VeltoEvent::Position}) {
        int after = -1;
        InEvent = [&](VeltoEvent event) {
            if (after >= 0) ++after;
            if (event != when || after >= 0) return;
            std::this_thread::sleep_for(100ms);
            player_->StopDevice();
            after = 0;
        };
        Play();
        EXPECT_TRUE(PumpUntil([&] { return after >= 0; }));
        PumpUntil([] { return false; }, 150ms);
        EXPECT_EQ(after, 0);
    }
    // Starting again within an event, and letting go of the component.
    int starts = 0;
    InEvent = [&](VeltoEvent event) {
        if (event == VeltoEvent::EndOfData || starts == 5) return;
        ++starts;
        player_->StopDevice();
        Play();
    };
    Sound.resize(10'000);
    Play();
    ASSERT_TRUE(Ended());
    EXPECT_EQ(starts, 5);
    EXPECT_EQ(Positions.back(), 5000);
    InEvent = [&](VeltoEvent) {
        connection_.Close();
        player_.Reset();
    };
    Play();
    EXPECT_TRUE(PumpUntil([&] { return !player_; }));
    PumpUntil([] { return false; }, 50ms);
}

TEST_F(Playback, EndsWithTheServerAndConnectsAnew) {
    Sound = tests::Noise(1'000'000);
    std::optional<tests::TestServer> server(std::in_place);
    Play();
    ASSERT_TRUE(PumpUntil([&] { return !Positions.empty() && Positions.back() > 4410; }));
    server->Kill();
    EXPECT_TRUE(Ended());
    // Without a server sound takes its time all the same.
    Sound.resize(44'100);
    Play();
    EXPECT_GT(SecondsOf([&] { EXPECT_TRUE(Ended()); }), 0.45);
    EXPECT_EQ(Positions.back(), 22'050);
    server.reset();
    server.emplace();
    Sound = tests::Noise(10'000);
    server->StartMonitor();
    Play();
    ASSERT_TRUE(Ended());
    EXPECT_EQ(tests::Trimmed(server->StopMonitor()), Sound);
}

TEST_F(Playback, NeverWaitsLongForAServerThatHangs) {
    tests::TestServer server;
    Sound = tests::Noise(1'000'000);
    Play();
    ASSERT_TRUE(PumpUntil([&] { return !Positions.empty() && Positions.back() > 4410; }));
    server.Send(SIGSTOP);
    PumpUntil([] { return false; }, 700ms);
    const LONG standing = Positions.back();
    PumpUntil([] { return false; }, 300ms);
    EXPECT_EQ(Positions.back(), standing);
    EXPECT_EQ(Ends, 0);
    EXPECT_LT(SecondsOf([&] { player_->StopDevice(); }), kPatience);
    for (int attempt = 0; attempt < 2; ++attempt) {
        player_->SetFormat(44100, 2);
        EXPECT_LT(SecondsOf([&] { player_->PrepareDevice(); }), kPatience);
        LONG error = 0;
        EXPECT_LT(SecondsOf([&] { player_->StartDevice(&error); }), kPatience);
        EXPECT_EQ(error, static_cast<LONG>(ErrorConstants::OUTDRIVER));
        Ends = 0;
        QueueNext();
        EXPECT_TRUE(Ended());
        SHORT count = 0;
        EXPECT_LT(SecondsOf([&] { player_->get_DeviceCount(&count); }), kPatience);
        EXPECT_LT(SecondsOf([&] { player_->put_MasterVolume(50); }), kPatience);
        EXPECT_GE(count, 1);
    }
    server.Send(SIGCONT);
    Sound.resize(10'000);
    Play();
    ASSERT_TRUE(Ended());
    EXPECT_EQ(Positions.back(), 5000);
}

TEST_F(Playback, FollowsItsStreamToAnotherDevice) {
    tests::TestServer server;
    server.Control({"load-module", "module-null-sink", "sink_name=other", "rate=44100",
                    "format=s16le", "channels=2"});
    Sound = tests::Noise(1'000'000);
    Play();
    ASSERT_TRUE(PumpUntil([&] { return !Positions.empty() && Positions.back() > 4410; }));
    server.Control({"set-default-sink", "other"});
    server.Control({"unload-module", "1"});
    const LONG moved = Positions.back();
    EXPECT_TRUE(PumpUntil([&] { return Positions.back() > moved + 22'050; }));
    EXPECT_EQ(Ends, 0);
    player_->StopDevice();
    server.Control({"unload-module", "module-null-sink"});
    Sound.resize(10'000);
    EXPECT_EQ(Start(), ErrorConstants::OUTDRIVER);
    EXPECT_TRUE(Ended());
}

TEST_F(Playback, IsNeverAttenuatedByWhatTheServerRemembers) {
    tests::TestServer server;
    server.Control({"load-module", "module-stream-restore"});
    Sound = tests::Noise(20'000);
    Play();
    server.Control({"set-sink-input-volume", "0", "50%"});
    server.Control({"set-sink-input-mute", "0", "1"});
    player_->StopDevice();
    player_->put_ExtraLatency(20);  // another stream
    server.StartMonitor();
    Play();
    ASSERT_TRUE(Ended());
    EXPECT_EQ(tests::Trimmed(server.StopMonitor()), Sound);
}

TEST_F(Playback, EndsWhereNothingIsQueued) {
    const tests::NoServer none;
    ASSERT_EQ(Start(), ErrorConstants::NOERRORS);
    EXPECT_TRUE(Ended());
    EXPECT_EQ(Positions, std::vector<LONG>{0});
    Queue({1, 2});
    PumpUntil([] { return false; }, 50ms);
    EXPECT_EQ(Ends, 1);
    // A part of a frame, no samples, no array; any format and any number.
    for (const auto& [rate, channels] : {std::pair{-5, 9}, {1 << 30, 0}, {44100, 2}}) {
        Start(rate, channels);
        Queue({});
        Queue({7});
        EXPECT_EQ(player_->QueueBlock(nullptr), E_POINTER);
        player_->put_TimerInterval(-1);
        player_->put_ExtraLatency(-1);
        EXPECT_TRUE(Ended());
    }
}

TEST_F(Playback, GivesTheFramesHeardLast) {
    const tests::NoServer none;
    Sound = tests::Noise(44'100);
    Play();
    ASSERT_TRUE(PumpUntil([&] { return !Positions.empty() && Positions.back() > 8820; }));
    const Samples recent = Recent(1000);
    ASSERT_EQ(recent.size(), 2000U);
    const auto found = std::search(Sound.begin(), Sound.end(), recent.begin(), recent.end());
    ASSERT_NE(found, Sound.end());
    EXPECT_GE(found - Sound.begin() + 2000, 2 * Positions.back());
    EXPECT_LT(found - Sound.begin() + 2000, 2 * (Positions.back() + 8820));
    ASSERT_TRUE(Ended());
    EXPECT_EQ(Recent(1 << 30), Sound);
    EXPECT_EQ(Recent(-1), Samples());
}

}  // namespace
}  // namespace mavrin2::velto
