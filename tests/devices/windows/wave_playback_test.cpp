#include "companions/devices/backends/winmm/wave_playback.h"

#include <gtest/gtest.h>

#include "companions/devices/backends/winmm/channel_volumes.h"
#include "companions/devices/backends/winmm/wrapping_counter.h"
#include "tests/support/noise.h"

namespace mavrin2::devices {
namespace {

using namespace std::chrono_literals;
using tests::Samples;

// What happens in a device, for a test to look at and to direct.
struct World {
    // The device has played some of what waits, and counts so much of it.
    void Pass(std::size_t samples, std::int64_t frames) {
        const std::lock_guard lock(Mutex);
        Waiting.erase(Waiting.begin(), Waiting.begin() + static_cast<std::ptrdiff_t>(samples));
        Counted += frames;
        Done->Set();
    }
    template <class Condition>
    bool Becomes(Condition condition) {
        for (int i = 0; i < 1000; ++i, ::Sleep(5))
            if (const std::lock_guard lock(Mutex); condition()) return true;
        return false;
    }

    std::mutex Mutex;
    WakeEvent* Done = nullptr;
    Samples Waiting;
    std::int64_t Counted = 0;
    int Resets = 0;
    bool Open = true;
    bool Gone = false;
};

class FakeDevice final : public OutputDevice {
public:
    explicit FakeDevice(World& world) : world_(world) {}
    ~FakeDevice() override {
        const std::lock_guard lock(world_.Mutex);
        world_.Open = false;
    }

    bool Write(std::span<const std::int16_t> samples) override {
        const std::lock_guard lock(world_.Mutex);
        world_.Waiting.insert(world_.Waiting.end(), samples.begin(), samples.end());
        return !world_.Gone;
    }
    std::int64_t Waiting() override {
        const std::lock_guard lock(world_.Mutex);
        return static_cast<std::int64_t>(world_.Waiting.size());
    }
    std::optional<std::int64_t> Heard() override {
        const std::lock_guard lock(world_.Mutex);
        return world_.Gone ? std::nullopt : std::optional(world_.Counted);
    }
    void Reset() override {
        const std::lock_guard lock(world_.Mutex);
        world_.Waiting.clear();
        world_.Counted = 0;
        ++world_.Resets;
    }

private:
    World& world_;
};

class Sound final : public SampleSource {
public:
    explicit Sound(std::size_t count) : rest_(tests::Noise(count)) {}
    std::size_t Take(std::span<std::int16_t> samples) override {
        const std::size_t count = std::min(samples.size(), rest_.size());
        std::copy_n(rest_.begin(), count, samples.begin());
        rest_.erase(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(count));
        return count;
    }

private:
    Samples rest_;
};

// A run, which ends before its sound goes.
class PlayingRun {
public:
    PlayingRun(WavePlayback& playback, std::size_t count) : playback_(playback), sound_(count) {
        playback_.Begin(sound_);
    }
    PlayingRun(const PlayingRun&) = delete;
    PlayingRun& operator=(const PlayingRun&) = delete;
    ~PlayingRun() { playback_.End(); }

private:
    WavePlayback& playback_;
    Sound sound_;
};

class WavePlaybackTest : public testing::Test {
protected:
    // 50 frames a millisecond, and 220 ms of them.
    static constexpr std::size_t kRoom = std::size_t{22'000};

    bool Takes(std::size_t samples) {
        return world_.Becomes([&] { return world_.Waiting.size() == samples; });
    }

    World world_;
    WavePlayback playback_{[this](WakeEvent& done) {
                               world_.Done = &done;
                               return std::make_unique<FakeDevice>(world_);
                           },
                           {{50'000, 2}, "", 100ms}};
};

TEST_F(WavePlaybackTest, FillsItsRoomAndCountsWhatIsHeard) {
    const PlayingRun run(playback_, 30'000);
    playback_.Supply();
    EXPECT_TRUE(Takes(kRoom));
    EXPECT_EQ(playback_.Observe().Heard, 0);
    world_.Pass(5000, 2500);
    EXPECT_TRUE(Takes(kRoom));
    EXPECT_EQ(playback_.Observe().Heard, 2500);
    // A device never has played more than it was given.
    world_.Pass(kRoom, 50'000);
    EXPECT_TRUE(Takes(3000));
    world_.Pass(3000, 0);
    EXPECT_EQ(playback_.Observe().Heard, 15'000);
    EXPECT_FALSE(playback_.Observe().Lost);
}

TEST_F(WavePlaybackTest, EndsWithADeviceThatCountsTooLittle) {
    const PlayingRun run(playback_, 1000);
    ASSERT_TRUE(Takes(1000));
    world_.Pass(1000, 499);
    EXPECT_EQ(playback_.Observe().Heard, 499);
    for (int i = 0; i < 1000 && playback_.Observe().Heard < 500; ++i)
        ::Sleep(5);
    EXPECT_EQ(playback_.Observe().Heard, 500);
}

TEST_F(WavePlaybackTest, KeepsTheSoundOfARunUntilTheNextOneHasSome) {
    Sound first(kRoom);
    playback_.Begin(first);
    ASSERT_TRUE(Takes(kRoom));
    world_.Pass(2000, 1000);
    playback_.End();
    Sound second(600);
    playback_.Begin(second);
    EXPECT_TRUE(Takes(600));
    EXPECT_EQ(world_.Resets, 1);
    EXPECT_EQ(playback_.Observe().Heard, 0);
    world_.Pass(200, 100);
    EXPECT_EQ(playback_.Observe().Heard, 100);
    // Without a next one there is silence soon, and then the device is given back.
    playback_.End();
    EXPECT_TRUE(Takes(0));
    EXPECT_TRUE(world_.Becomes([&] { return !world_.Open; }));
    EXPECT_FALSE(playback_.IsUsable());
}

TEST_F(WavePlaybackTest, SaysThatTheDeviceHasGone) {
    const PlayingRun run(playback_, 1000);
    ASSERT_TRUE(Takes(1000));
    world_.Pass(200, 100);
    EXPECT_EQ(playback_.Observe().Heard, 100);
    {
        const std::lock_guard lock(world_.Mutex);
        world_.Gone = true;
    }
    EXPECT_TRUE(playback_.Observe().Lost);
    EXPECT_EQ(playback_.Observe().Heard, 100);
    EXPECT_FALSE(playback_.IsUsable());
}

TEST(Counter, CountsOnWhereTheDeviceBeginsAgain) {
    WrappingCounter counter;
    counter.Restart(0xFFFFFF00);
    EXPECT_EQ(counter.Advance(0xFFFFFFF0), 0xF0);
    EXPECT_EQ(counter.Advance(0x10), 0x110);
    EXPECT_EQ(counter.Advance(0x0C), 0x110);
    EXPECT_EQ(counter.Advance(0xFFFFFFFE), 0x110);
    std::int64_t expected = 0x110;
    for (std::uint32_t reading = 0x10; expected < std::int64_t{1} << 34; expected += 0x70000000)
        ASSERT_EQ(counter.Advance(reading += 0x70000000), expected + 0x70000000);
}

TEST(Volumes, KeepTheirRelation) {
    ChannelVolumes volumes({65535, 32768}, 65535);
    EXPECT_EQ(volumes.LoudestPercent(), 100);
    EXPECT_EQ(volumes.Balance(), -50);
    volumes.SetLoudest(40);
    EXPECT_EQ(volumes.Percent(0), 40);
    EXPECT_EQ(volumes.Percent(1), 20);
    volumes.SetBalance(75);
    EXPECT_EQ(volumes.Percent(0), 10);
    EXPECT_EQ(volumes.Percent(1), 40);
    EXPECT_EQ(volumes.Balance(), 75);
    volumes.SetChannel(0, 80);
    volumes.SetChannel(2, 90);
    EXPECT_EQ(volumes.Balance(), -50);
    volumes.SetLoudest(0);
    volumes.SetLoudest(30);
    EXPECT_EQ(volumes.Balance(), 0);
    for (std::int32_t percent = 0; percent <= 100; ++percent) {
        volumes.SetLoudest(percent);
        ASSERT_EQ(volumes.LoudestPercent(), percent);
    }
    EXPECT_FALSE(ChannelVolumes({5}, 10).HasBalance());
}

}  // namespace
}  // namespace mavrin2::devices
