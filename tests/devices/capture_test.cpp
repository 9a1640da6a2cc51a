#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <thread>

#include "automation/event_sink.h"
#include "companions/contracts/constants.h"
#include "companions/rimbal/capture_companion.h"
#include "tests/devices/built_servers.h"
#include "tests/support/sound_server/sound_server.h"

namespace mavrin2::rimbal {
namespace {

using namespace std::chrono_literals;
using contracts::ErrorConstants;
using contracts::RimbalEvent;
using tests::PumpUntil;
using tests::Samples;

// A host that keeps every block.
class Capture : public testing::Test {
protected:
    Capture() {
        EXPECT_EQ(connection_.Open(static_cast<contracts::IRimbal2*>(recorder_.Get()),
                                   contracts::DIID_IRimbal2Events,
                                   [this](DISPID event, const automation::EventArguments& values) {
                                       OnEvent(static_cast<RimbalEvent>(event), values);
                                       return S_OK;
                                   }),
                  S_OK);
    }

    ErrorConstants Start(LONG block, LONG rate = 44100, LONG channels = 2) {
        Recorded = {};
        Blocks = {};
        Positions = {};
        Peaks = {};
        recorder_->SetFormat(rate, channels);
        recorder_->SetBufferFrames(block);
        recorder_->PrepareDevice();
        LONG error = -1;
        EXPECT_EQ(recorder_->StartDevice(&error), S_OK);
        return static_cast<ErrorConstants>(error);
    }
    bool ReadBlock() {
        automation::SafeArray<std::int16_t> array;
        EXPECT_EQ(recorder_->ReadBlock(array.Put()), S_OK);
        const automation::ArrayView<std::int16_t> view(array.Get());
        const auto samples = view.Elements();
        Recorded.insert(Recorded.end(), samples.begin(), samples.end());
        if (!samples.empty()) Blocks.push_back(samples.size());
        return !samples.empty();
    }
    void Stop() {
        recorder_->StopDevice();
        while (ReadBlock())
            ;
    }
    void Pass(std::chrono::milliseconds time) {
        PumpUntil([] { return false; }, time);
    }

    void OnEvent(RimbalEvent event, const automation::EventArguments& values) {
        LONG first = 0;
        if (event == RimbalEvent::BlockReady) {
            EXPECT_TRUE(ReadBlock());
        } else if (event == RimbalEvent::Position) {
            LONG left = 0;
            LONG right = 0;
            EXPECT_TRUE(values.Read(0, first) && values.Read(1, left) && values.Read(2, right));
            Positions.push_back(first);
            Peaks.Include({left, right});
        } else {
            EXPECT_TRUE(values.Read(0, first));
            Gains.push_back(first);
        }
    }

    Samples Recorded;
    std::vector<std::size_t> Blocks;  // samples
    std::vector<LONG> Positions;
    std::vector<LONG> Gains;
    devices::Levels Peaks;

    automation::ComPtr<CaptureCompanion> recorder_ = CaptureCompanion::Make(tests::Servers());
    automation::EventConnection connection_;
};

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
