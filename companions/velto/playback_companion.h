#pragma once

#include <optional>

#include "automation/connection_points.h"
#include "automation/type_information.h"
#include "companions/contracts/velto.h"
#include "companions/devices/mixer/device_members.h"
#include "companions/devices/streams/player.h"

namespace mavrin2::velto {

// The class KovVelto.
class PlaybackCompanion final : public devices::DeviceObject<PlaybackCompanion, contracts::IVelto2,
                                                             devices::Direction::Output>,
                                private devices::PlayerEvents {
public:
    PlaybackCompanion(IUnknown* outer, devices::ServerAccess servers);

    void* FindInterface(REFIID iid);

    STDMETHODIMP PrepareDevice() override;
    STDMETHODIMP StopDevice() override;
    STDMETHODIMP QueueBlock(SAFEARRAY** samples) override;
    STDMETHODIMP SetFormat(LONG sampleRate, LONG channels) override;
    STDMETHODIMP GetRecentSamples(LONG count, SAFEARRAY** samples) override;
    STDMETHODIMP put_TimerInterval(SHORT milliseconds) override;
    STDMETHODIMP put_ExtraLatency(LONG milliseconds) override;
    STDMETHODIMP SetOutputChannels(LONG channels) override;
    STDMETHODIMP StartDevice(LONG* error) override;
    STDMETHODIMP get_MasterVolume(LONG* percent) override;
    STDMETHODIMP put_MasterVolume(LONG percent) override;

private:
    void OnBlockDone() override;
    void OnPlayed(std::int64_t frames, devices::Levels levels) override;
    void OnEndOfData() override;
    void Fire(contracts::VeltoEvent event, std::span<const VARIANT> arguments);

    automation::ConnectionPoints points_;
    automation::ClassInformation classInformation_;
    devices::TimerInterval interval_;
    devices::Format format_;
    devices::OutputChannels channels_ = devices::OutputChannels::Both;
    std::chrono::milliseconds extraLatency_{0};
    std::optional<devices::PlaybackRun> run_;
};

}  // namespace mavrin2::velto
