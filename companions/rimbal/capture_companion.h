#pragma once

#include <memory>
#include <optional>

#include "automation/connection_points.h"
#include "automation/type_information.h"
#include "companions/contracts/rimbal.h"
#include "companions/devices/mixer/device_members.h"
#include "companions/devices/streams/recorder.h"
#include "companions/rimbal/chain/recording_settings.h"

namespace mavrin2::rimbal {

// The class KovRimbal2.
class CaptureCompanion final : public devices::DeviceObject<CaptureCompanion, contracts::IRimbal2,
                                                            devices::Direction::Input>,
                               private devices::RecorderEvents {
public:
    CaptureCompanion(IUnknown* outer, devices::ServerAccess servers);

    void* FindInterface(REFIID iid);

    STDMETHODIMP PrepareDevice() override;
    STDMETHODIMP StopDevice() override;
    STDMETHODIMP SetFormat(LONG sampleRate, LONG channels) override;
    STDMETHODIMP ReadBlock(SAFEARRAY** samples) override;
    STDMETHODIMP GetRecentSamples(LONG count, SAFEARRAY** samples) override;
    STDMETHODIMP put_TimerInterval(SHORT milliseconds) override;
    STDMETHODIMP SetBufferFrames(LONG frames) override;
    STDMETHODIMP StartDevice(LONG* error) override;

    STDMETHODIMP get_NotchFilterFrequency(FLOAT* value) override;
    STDMETHODIMP put_NotchFilterFrequency(FLOAT value) override;
    STDMETHODIMP get_HighPassFilterFrequency(FLOAT* value) override;
    STDMETHODIMP put_HighPassFilterFrequency(FLOAT value) override;
    STDMETHODIMP get_LowPassFilterFrequency(FLOAT* value) override;
    STDMETHODIMP put_LowPassFilterFrequency(FLOAT value) override;
    STDMETHODIMP get_NotchFilterEnabled(VARIANT_BOOL* value) override;
    STDMETHODIMP put_NotchFilterEnabled(VARIANT_BOOL value) override;
    STDMETHODIMP get_HighPassFilterEnabled(VARIANT_BOOL* value) override;
    STDMETHODIMP put_HighPassFilterEnabled(VARIANT_BOOL value) override;
    STDMETHODIMP get_LowPassFilterEnabled(VARIANT_BOOL* value) override;
    STDMETHODIMP put_LowPassFilterEnabled(VARIANT_BOOL value) override;
    STDMETHODIMP get_AccuEnabled(VARIANT_BOOL* value) override;
    STDMETHODIMP put_AccuEnabled(VARIANT_BOOL value) override;
    STDMETHODIMP get_AGCEnabled(VARIANT_BOOL* value) override;
    STDMETHODIMP put_AGCEnabled(VARIANT_BOOL value) override;
    STDMETHODIMP get_AccuAttackTime(LONG* value) override;
    STDMETHODIMP put_AccuAttackTime(LONG value) override;
    STDMETHODIMP get_AccuReleaseTime(LONG* value) override;
    STDMETHODIMP put_AccuReleaseTime(LONG value) override;
    STDMETHODIMP get_AGCAttackTime(LONG* value) override;
    STDMETHODIMP put_AGCAttackTime(LONG value) override;
    STDMETHODIMP get_AccuAttackLevel(LONG* value) override;
    STDMETHODIMP put_AccuAttackLevel(LONG value) override;
    STDMETHODIMP get_AccuReleaseLevel(LONG* value) override;
    STDMETHODIMP put_AccuReleaseLevel(LONG value) override;
    STDMETHODIMP get_AGCLowLevel(LONG* value) override;
    STDMETHODIMP put_AGCLowLevel(LONG value) override;
    STDMETHODIMP get_AGCHighLevel(LONG* value) override;
    STDMETHODIMP put_AGCHighLevel(LONG value) override;

private:
    void OnBlockReady() override;
    void OnRecorded(std::int64_t frames, devices::Levels levels) override;
    void OnGain(std::int32_t percent) override;
    void Fire(contracts::RimbalEvent event, std::span<const VARIANT> arguments);

    automation::ConnectionPoints points_;
    automation::ClassInformation classInformation_;
    const std::shared_ptr<SharedSettings> settings_ = std::make_shared<SharedSettings>();
    devices::TimerInterval interval_;
    devices::Format format_;
    std::int64_t blockFrames_ = 0;
    // Of the present run, or of the one before.
    std::shared_ptr<devices::CaptureBlocks> blocks_;
    std::optional<devices::CaptureRun> run_;
};

}  // namespace mavrin2::rimbal
