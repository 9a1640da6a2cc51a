#include "companions/rimbal/capture_companion.h"

#include <algorithm>

#include "companions/contracts/constants.h"
#include "companions/rimbal/chain/recording_chain.h"

namespace mavrin2::rimbal {

using contracts::ErrorConstants;

namespace {

constexpr LONG kHighestLevel = 32767;
constexpr LONG kLongestTime = 60'000;  // milliseconds

LONG Level(LONG value) {
    return std::clamp<LONG>(value, 0, kHighestLevel);
}

LONG Time(LONG value) {
    return std::clamp<LONG>(value, 0, kLongestTime);
}

}  // namespace

CaptureCompanion::CaptureCompanion(IUnknown* outer, devices::ServerAccess servers)
    : DeviceObject(outer, std::move(servers)),
      points_(Identity(), {&contracts::DIID_IRimbal2Events}),
      classInformation_(Identity(), &contracts::RimbalLibrary, contracts::CLSID_KovRimbal2) {}

void* CaptureCompanion::FindInterface(REFIID iid) {
    if (IsEqualGUID(iid, IID_IConnectionPointContainer))
        return static_cast<IConnectionPointContainer*>(&points_);
    if (IsEqualGUID(iid, IID_IProvideClassInfo) || IsEqualGUID(iid, IID_IProvideClassInfo2))
        return static_cast<IProvideClassInfo2*>(&classInformation_);
    return nullptr;
}

STDMETHODIMP CaptureCompanion::PrepareDevice() {
    return automation::Guarded(
        [&] { return Servers().Reach(devices::Patience()) ? S_OK : E_FAIL; });
}

STDMETHODIMP CaptureCompanion::StopDevice() {
    return automation::Guarded([&] { run_.reset(); });
}

STDMETHODIMP CaptureCompanion::SetFormat(LONG sampleRate, LONG channels) {
    format_ = devices::LimitedFormat(sampleRate, channels);
    return S_OK;
}

STDMETHODIMP CaptureCompanion::ReadBlock(SAFEARRAY** samples) {
    return automation::Guarded([&] {
        // The part of a block at the end belongs to what StopDevice leaves.
        return devices::GiveSamples(
            blocks_ ? blocks_->Next(!run_.has_value()) : std::vector<std::int16_t>(), samples);
    });
}

STDMETHODIMP CaptureCompanion::GetRecentSamples(LONG count, SAFEARRAY** samples) {
    return automation::Guarded([&] {
        return devices::GiveSamples(run_ ? run_->Recent(count) : std::vector<std::int16_t>(),
                                    samples);
    });
}

STDMETHODIMP CaptureCompanion::put_TimerInterval(SHORT milliseconds) {
    interval_.Set(milliseconds);
    return S_OK;
}

STDMETHODIMP CaptureCompanion::SetBufferFrames(LONG frames) {
    blockFrames_ = frames;
    return S_OK;
}

STDMETHODIMP CaptureCompanion::StartDevice(LONG* error) {
    return automation::Guarded([&]() -> HRESULT {
        run_.reset();
        const devices::Deadline deadline = devices::Patience();
        const std::int64_t frames = blockFrames_ > 0 ? blockFrames_ : std::max(format_.Rate / 2, 1);
        blocks_ = std::make_shared<devices::CaptureBlocks>(
            static_cast<std::size_t>(frames * format_.Channels));
        run_.emplace(Servers().Reach(deadline),
                     devices::StreamRequest{format_, Mixer().SelectedDevice()}, deadline, interval_,
                     std::make_unique<RecordingChain>(format_, settings_), blocks_,
                     static_cast<devices::RecorderEvents&>(*this));
        return devices::Give(
            error, run_->IsStarted() ? ErrorConstants::NOERRORS : ErrorConstants::INPDRIVER);
    });
}

STDMETHODIMP CaptureCompanion::get_NotchFilterFrequency(FLOAT* value) {
    return devices::Give(value, settings_->Get().Notch.Frequency);
}

STDMETHODIMP CaptureCompanion::put_NotchFilterFrequency(FLOAT value) {
    settings_->Change([&](RecordingSettings& all) { all.Notch.Frequency = value; });
    return S_OK;
}

STDMETHODIMP CaptureCompanion::get_HighPassFilterFrequency(FLOAT* value) {
    return devices::Give(value, settings_->Get().HighPass.Frequency);
}

STDMETHODIMP CaptureCompanion::put_HighPassFilterFrequency(FLOAT value) {
    settings_->Change([&](RecordingSettings& all) { all.HighPass.Frequency = value; });
    return S_OK;
}

STDMETHODIMP CaptureCompanion::get_LowPassFilterFrequency(FLOAT* value) {
    return devices::Give(value, settings_->Get().LowPass.Frequency);
}

STDMETHODIMP CaptureCompanion::put_LowPassFilterFrequency(FLOAT value) {
    settings_->Change([&](RecordingSettings& all) { all.LowPass.Frequency = value; });
    return S_OK;
}

STDMETHODIMP CaptureCompanion::get_NotchFilterEnabled(VARIANT_BOOL* value) {
    return devices::Give(value, devices::Switch(settings_->Get().Notch.Enabled));
}

STDMETHODIMP CaptureCompanion::put_NotchFilterEnabled(VARIANT_BOOL value) {
    settings_->Change([&](RecordingSettings& all) { all.Notch.Enabled = value != 0; });
    return S_OK;
}

STDMETHODIMP CaptureCompanion::get_HighPassFilterEnabled(VARIANT_BOOL* value) {
    return devices::Give(value, devices::Switch(settings_->Get().HighPass.Enabled));
}

STDMETHODIMP CaptureCompanion::put_HighPassFilterEnabled(VARIANT_BOOL value) {
    settings_->Change([&](RecordingSettings& all) { all.HighPass.Enabled = value != 0; });
    return S_OK;
}

STDMETHODIMP CaptureCompanion::get_LowPassFilterEnabled(VARIANT_BOOL* value) {
    return devices::Give(value, devices::Switch(settings_->Get().LowPass.Enabled));
}

STDMETHODIMP CaptureCompanion::put_LowPassFilterEnabled(VARIANT_BOOL value) {
    settings_->Change([&](RecordingSettings& all) { all.LowPass.Enabled = value != 0; });
    return S_OK;
}

STDMETHODIMP CaptureCompanion::get_AccuEnabled(VARIANT_BOOL* value) {
    return devices::Give(value, devices::Switch(settings_->Get().Gate.Enabled));
}

STDMETHODIMP CaptureCompanion::put_AccuEnabled(VARIANT_BOOL value) {
    settings_->Change([&](RecordingSettings& all) { all.Gate.Enabled = value != 0; });
    return S_OK;
}

STDMETHODIMP CaptureCompanion::get_AGCEnabled(VARIANT_BOOL* value) {
    return devices::Give(value, devices::Switch(settings_->Get().Gain.Enabled));
}

STDMETHODIMP CaptureCompanion::put_AGCEnabled(VARIANT_BOOL value) {
    settings_->Change([&](RecordingSettings& all) { all.Gain.Enabled = value != 0; });
    return S_OK;
}

STDMETHODIMP CaptureCompanion::get_AccuAttackTime(LONG* value) {
    return devices::Give(value, settings_->Get().Gate.AttackTime);
}

STDMETHODIMP CaptureCompanion::put_AccuAttackTime(LONG value) {
    settings_->Change([&](RecordingSettings& all) { all.Gate.AttackTime = Time(value); });
    return S_OK;
}

STDMETHODIMP CaptureCompanion::get_AccuReleaseTime(LONG* value) {
    return devices::Give(value, settings_->Get().Gate.ReleaseTime);
}

STDMETHODIMP CaptureCompanion::put_AccuReleaseTime(LONG value) {
    settings_->Change([&](RecordingSettings& all) { all.Gate.ReleaseTime = Time(value); });
    return S_OK;
}

STDMETHODIMP CaptureCompanion::get_AGCAttackTime(LONG* value) {
    return devices::Give(value, settings_->Get().Gain.AttackTime);
}

STDMETHODIMP CaptureCompanion::put_AGCAttackTime(LONG value) {
    settings_->Change([&](RecordingSettings& all) { all.Gain.AttackTime = Time(value); });
    return S_OK;
}

STDMETHODIMP CaptureCompanion::get_AccuAttackLevel(LONG* value) {
    return devices::Give(value, settings_->Get().Gate.AttackLevel);
}

STDMETHODIMP CaptureCompanion::put_AccuAttackLevel(LONG value) {
    settings_->Change([&](RecordingSettings& all) { all.Gate.AttackLevel = Level(value); });
    return S_OK;
}

STDMETHODIMP CaptureCompanion::get_AccuReleaseLevel(LONG* value) {
    return devices::Give(value, settings_->Get().Gate.ReleaseLevel);
}

STDMETHODIMP CaptureCompanion::put_AccuReleaseLevel(LONG value) {
    settings_->Change([&](RecordingSettings& all) { all.Gate.ReleaseLevel = Level(value); });
    return S_OK;
}

STDMETHODIMP CaptureCompanion::get_AGCLowLevel(LONG* value) {
    return devices::Give(value, settings_->Get().Gain.LowLevel);
}

STDMETHODIMP CaptureCompanion::put_AGCLowLevel(LONG value) {
    settings_->Change([&](RecordingSettings& all) { all.Gain.LowLevel = Level(value); });
    return S_OK;
}

STDMETHODIMP CaptureCompanion::get_AGCHighLevel(LONG* value) {
    return devices::Give(value, settings_->Get().Gain.HighLevel);
}

STDMETHODIMP CaptureCompanion::put_AGCHighLevel(LONG value) {
    settings_->Change([&](RecordingSettings& all) { all.Gain.HighLevel = Level(value); });
    return S_OK;
}

void CaptureCompanion::OnBlockReady() {
    Fire(contracts::RimbalEvent::BlockReady, {});
}

void CaptureCompanion::OnRecorded(std::int64_t frames, devices::Levels levels) {
    Fire(contracts::RimbalEvent::Position, devices::PositionArguments(frames, levels));
}

void CaptureCompanion::OnGain(std::int32_t percent) {
    const VARIANT argument = automation::Variant::Int32(percent);
    Fire(contracts::RimbalEvent::Gain, {&argument, 1});
}

void CaptureCompanion::Fire(contracts::RimbalEvent event, std::span<const VARIANT> arguments) {
    // A handler may let go of the last reference.
    const automation::ComPtr<IUnknown> alive(Identity());
    automation::FireEvent(points_.At(0), static_cast<DISPID>(event), arguments);
}

}  // namespace mavrin2::rimbal
