#include "companions/devices/backends/winmm/winmm_server.h"

#include <array>

#include "companions/devices/backends/winmm/mixer_line.h"
#include "companions/devices/backends/winmm/wave_capture.h"
#include "companions/devices/backends/winmm/wave_devices.h"
#include "companions/devices/backends/winmm/wave_output.h"

namespace mavrin2::devices {
namespace {

// One run of a device that may play others after it.
class WinmmOutput final : public OutputStream {
public:
    WinmmOutput(std::shared_ptr<WavePlayback> playback, SampleSource& source)
        : playback_(std::move(playback)) {
        playback_->Begin(source);
    }
    WinmmOutput(const WinmmOutput&) = delete;
    WinmmOutput& operator=(const WinmmOutput&) = delete;
    ~WinmmOutput() override { playback_->End(); }

    void Supply() override { playback_->Supply(); }
    // A wave device plays the last samples like all others.
    void Finish() override {}
    StreamProgress Observe() override { return playback_->Observe(); }

private:
    const std::shared_ptr<WavePlayback> playback_;
};

// In the order in which the system interleaves them.
constexpr std::array kChannelNames = {
    "Front Left", "Front Right", "Front Center", "Subwoofer",
    "Rear Left",  "Rear Right",  "Side Left",    "Side Right",
};

std::string ChannelName(std::size_t channel, std::size_t count) {
    if (count == 1) return "Mono";
    return channel < kChannelNames.size() ? kChannelNames[channel]
                                          : "Channel " + std::to_string(channel + 1);
}

Device Describe(const WaveDevice& wave, const MixerLine& line) {
    Device device;
    device.Name = wave.Name;
    device.Description = wave.Description;
    device.Default = wave.Default;
    device.Muted = line.IsMuted();
    if (const auto volumes = line.Volumes()) {
        device.Volume = volumes->LoudestPercent();
        device.HasBalance = volumes->HasBalance();
        device.Balance = volumes->Balance();
        const std::size_t count = volumes->Channels().size();
        for (std::size_t i = 0; i < count; ++i)
            device.Channels.push_back({ChannelName(i, count), volumes->Percent(i)});
    }
    return device;
}

}  // namespace

std::optional<std::vector<Device>> WinmmServer::List(Direction direction, Deadline) {
    std::vector<Device> devices;
    for (const WaveDevice& wave : WaveDevices(direction))
        devices.push_back(Describe(wave, MixerLine(direction, wave.Number)));
    return devices;
}

bool WinmmServer::Change(Direction direction, const std::string& device, const MixerChange& change,
                         Deadline) {
    using Control = MixerChange::Control;
    const auto number = WaveDeviceNumber(direction, device);
    if (!number) return false;
    const MixerLine line(direction, *number);
    if (change.What == Control::Muted) return line.Mute(change.Value != 0);
    auto volumes = line.Volumes();
    if (!volumes) return false;
    switch (change.What) {
        case Control::Volume:
            volumes->SetLoudest(change.Value);
            break;
        case Control::Balance:
            if (!volumes->HasBalance()) return false;
            volumes->SetBalance(change.Value);
            break;
        case Control::Channel:
            if (change.Index >= volumes->Channels().size()) return false;
            volumes->SetChannel(change.Index, change.Value);
            break;
        default:
            return false;
    }
    return line.SetVolumes(*volumes);
}

std::unique_ptr<OutputStream> WinmmServer::Play(const StreamRequest& request, SampleSource& source,
                                                Deadline) {
    if (!playback_ || !playback_->Fits(request) || !playback_->IsUsable()) {
        // Before another one is opened: some devices play one sound at a time.
        playback_.reset();
        const auto number = WaveDeviceNumber(Direction::Output, request.Device);
        if (!number) return nullptr;
        playback_ = std::make_shared<WavePlayback>(
            [&](WakeEvent& done) { return WaveOutput::Open(*number, request.Sound, done); },
            request);
        if (!playback_->IsUsable()) {
            playback_.reset();
            return nullptr;
        }
    }
    return std::make_unique<WinmmOutput>(playback_, source);
}

std::unique_ptr<InputStream> WinmmServer::Record(const StreamRequest& request, SampleSink& sink,
                                                 Deadline) {
    const auto number = WaveDeviceNumber(Direction::Input, request.Device);
    return number ? WaveCapture::Begin(*number, request.Sound, sink) : nullptr;
}

}  // namespace mavrin2::devices
