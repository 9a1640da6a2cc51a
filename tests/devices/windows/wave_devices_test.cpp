// The companions on the sound cards of tests/windows/sound_cards.

#include "companions/devices/backends/winmm/wave_devices.h"

#include <cstdlib>
#include <fstream>

#include "tests/devices/playing_host.h"
#include "tests/devices/recording_host.h"

namespace mavrin2 {
namespace {

using namespace std::chrono_literals;

class WaveOutputs : public velto::Playback {
protected:
    std::string Name(SHORT number) {
        player_->put_DeviceNum(number);
        automation::Bstr name;
        player_->get_DeviceName(name.Put());
        return name.Utf8();
    }
    LONG Volume() {
        LONG percent = -1;
        player_->get_MasterVolume(&percent);
        return percent;
    }
};

// What the writing sound card has played. A busy machine may leave it without sound for a while.
tests::Samples ReadHeard() {
    std::ifstream stream(std::string("Z:") + std::getenv("MAVRIN2_HEARD"), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    tests::Samples samples(bytes.size() / 2);
    std::copy_n(bytes.data(), samples.size() * 2, reinterpret_cast<char*>(samples.data()));
    std::erase(samples, 0);
    return samples;
}

class Heard : public velto::Playback {};

TEST_F(Heard, IsWhatWasPlayed) {
    Sound = tests::Noise(100'000);
    Block = 7001;
    Play();
    ASSERT_TRUE(Ended());
    // The card writes the end of the sound some time later, as long as it is open.
    tests::PumpUntil([&] { return ReadHeard().size() >= Sound.size(); });
    EXPECT_EQ(ReadHeard(), Sound);
}

TEST_F(WaveOutputs, PlayToTheLastFrame) {
    for (const auto& [frames, rate, channels] :
         {std::tuple{30'000, 44100, 2}, {1, 48000, 1}, {4410, 8000, 1}, {5000, 96000, 2}}) {
        Sound = tests::Noise(static_cast<std::size_t>(frames * channels));
        Block = frames == 4410 ? 100 : 5000;
        Play(rate, channels);
        ASSERT_TRUE(Ended()) << frames;
        EXPECT_EQ(Positions.back(), frames);
        EXPECT_TRUE(std::is_sorted(Positions.begin(), Positions.end()));
        EXPECT_EQ(Recent(1 << 30), Sound);
        player_->StopDevice();
    }
    for (const auto& [rate, channels] : {std::pair{-5, 9}, {1 << 30, 0}}) {
        Start(rate, channels);
        EXPECT_TRUE(Ended());
    }
}

TEST_F(WaveOutputs, RaiseNothingAfterStopDevice) {
    Sound = tests::Noise(400'000);
    Block = 2000;
    player_->put_TimerInterval(5);
    for (const auto when : {velto::VeltoEvent::BlockDone, velto::VeltoEvent::Position}) {
        int after = -1;
        InEvent = [&](velto::VeltoEvent event) {
            if (after >= 0) ++after;
            if (event != when || after >= 0) return;
            ::Sleep(30);
            player_->StopDevice();
            after = 0;
        };
        Play();
        EXPECT_TRUE(tests::PumpUntil([&] { return after >= 0; }));
        tests::PumpUntil([] { return false; }, 50ms);
        EXPECT_EQ(after, 0);
    }
    // Within the last event, letting go of the component.
    Sound.resize(2000);
    InEvent = [&](velto::VeltoEvent) {
        connection_.Close();
        player_.Reset();
    };
    Play();
    EXPECT_TRUE(tests::PumpUntil([&] { return !player_; }));
}

TEST_F(WaveOutputs, AreListedAndKeepTheirVolume) {
    SHORT count = 0;
    player_->get_DeviceCount(&count);
    ASSERT_GE(count, 2);
    EXPECT_EQ(Name(1), "Default: " + Name(2));
    const auto devices = devices::WaveDevices(devices::Direction::Output);
    ASSERT_EQ(devices.size(), static_cast<std::size_t>(count) - 1);
    EXPECT_EQ(devices::WaveDeviceNumber(devices::Direction::Output, devices[0].Name), 0U);
    EXPECT_EQ(devices::WaveDeviceNumber(devices::Direction::Output, "no such device"),
              std::nullopt);
    EXPECT_NE(devices::WaveDevices(devices::Direction::Input).at(0).Name, devices[0].Name);

    for (const LONG percent : {0, 37, 100}) {
        player_->put_MasterVolume(percent);
        EXPECT_EQ(Volume(), percent);
    }
    for (const VARIANT_BOOL muted : {1, 0}) {
        player_->put_LineSwitch(muted);
        VARIANT_BOOL now = -1;
        player_->get_LineSwitch(&now);
        EXPECT_EQ(now, muted);
    }
    // A chosen device plays as the default one does.
    Name(2);
    Sound = tests::Noise(2000);
    Play();
    ASSERT_TRUE(Ended());
    EXPECT_EQ(Positions.back(), 1000);
}

class WaveInputs : public rimbal::Capture {};

TEST_F(WaveInputs, RecordInWholeBlocksAndThenWhatIsLeft) {
    ASSERT_EQ(Start(3000), rimbal::ErrorConstants::NOERRORS);
    EXPECT_TRUE(tests::PumpUntil([&] { return Blocks.size() >= 3 && !Positions.empty(); }));
    Stop();
    EXPECT_TRUE(std::all_of(Blocks.begin(), Blocks.end() - 1,
                            [](std::size_t samples) { return samples == 6000; }));
    EXPECT_LE(Blocks.back(), 6000U);
    EXPECT_EQ(tests::Trimmed(Recorded), tests::Samples());
    EXPECT_GE(static_cast<LONG>(Recorded.size() / 2), Positions.back());
    const std::size_t events = Positions.size();
    tests::PumpUntil([] { return false; }, 50ms);
    EXPECT_EQ(Positions.size(), events);
    EXPECT_FALSE(ReadBlock());
}

}  // namespace
}  // namespace mavrin2
