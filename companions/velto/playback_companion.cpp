#include "companions/velto/playback_companion.h"

#include <algorithm>

#include "companions/contracts/constants.h"

namespace mavrin2::velto {

using contracts::ErrorConstants;
using devices::OutputChannels;

PlaybackCompanion::PlaybackCompanion(IUnknown* outer, devices::ServerAccess servers)
    : DeviceObject(outer, std::move(servers)),
      points_(Identity(), {&contracts::DIID_IVelto2Events}),
      classInformation_(Identity(), &contracts::VeltoLibrary, contracts::CLSID_KovVelto) {}

void* PlaybackCompanion::FindInterface(REFIID iid) {
    if (IsEqualGUID(iid, IID_IConnectionPointContainer))
        return static_cast<IConnectionPointContainer*>(&points_);
    if (IsEqualGUID(iid, IID_IProvideClassInfo) || IsEqualGUID(iid, IID_IProvideClassInfo2))
        return static_cast<IProvideClassInfo2*>(&classInformation_);
    return nullptr;
}

STDMETHODIMP PlaybackCompanion::PrepareDevice() {
    return automation::Guarded(
        [&] { return Servers().Reach(devices::Patience()) ? S_OK : E_FAIL; });
}

STDMETHODIMP PlaybackCompanion::StopDevice() {
    return automation::Guarded([&] { run_.reset(); });
}

STDMETHODIMP PlaybackCompanion::QueueBlock(SAFEARRAY** samples) {
    return automation::Guarded([&]() -> HRESULT {
        if (!samples) return E_POINTER;
        if (!run_) return E_UNEXPECTED;
        const automation::ArrayView<std::int16_t> view(*samples);
        const auto elements = view.Elements();
        // A part of a frame at the end cannot be played.
        const auto channels = static_cast<std::size_t>(run_->Sound().Channels);
        const auto whole = elements.first(elements.size() - elements.size() % channels);
        if (whole.empty()) return E_INVALIDARG;
        run_->Queue({whole.begin(), whole.end()});
        return S_OK;
    });
}

STDMETHODIMP PlaybackCompanion::SetFormat(LONG sampleRate, LONG channels) {
    format_ = devices::LimitedFormat(sampleRate, channels);
    return S_OK;
}

STDMETHODIMP PlaybackCompanion::GetRecentSamples(LONG count, SAFEARRAY** samples) {
    return automation::Guarded([&] {
        return devices::GiveSamples(run_ ? run_->Recent(count) : std::vector<std::int16_t>(),
                                    samples);
    });
}

STDMETHODIMP PlaybackCompanion::put_TimerInterval(SHORT milliseconds) {
    interval_.Set(milliseconds);
    return S_OK;
}

STDMETHODIMP PlaybackCompanion::put_ExtraLatency(LONG milliseconds) {
    extraLatency_ = std::chrono::milliseconds(std::clamp<LONG>(milliseconds, 0, 2000));
    return S_OK;
}

STDMETHODIMP PlaybackCompanion::SetOutputChannels(LONG channels) {
    channels_ = channels == 1   ? OutputChannels::Left
                : channels == 2 ? OutputChannels::Right
                                : OutputChannels::Both;
    if (run_) run_->Choose(channels_);
    return S_OK;
}

STDMETHODIMP PlaybackCompanion::StartDevice(LONG* error) {
    return automation::Guarded([&]() -> HRESULT {
        run_.reset();
        const devices::Deadline deadline = devices::Patience();
        run_.emplace(Servers().Reach(deadline),
                     devices::StreamRequest{format_, Mixer().SelectedDevice(), extraLatency_},
                     deadline, interval_, static_cast<devices::PlayerEvents&>(*this));
        run_->Choose(channels_);
        return devices::Give(
            error, run_->IsStarted() ? ErrorConstants::NOERRORS : ErrorConstants::OUTDRIVER);
    });
}

STDMETHODIMP PlaybackCompanion::get_MasterVolume(LONG* percent) {
    return get_LineVolume(percent);
}

STDMETHODIMP PlaybackCompanion::put_MasterVolume(LONG percent) {
    return put_LineVolume(percent);
}

void PlaybackCompanion::OnBlockDone() {
    Fire(contracts::VeltoEvent::BlockDone, {});
}

void PlaybackCompanion::OnPlayed(std::int64_t frames, devices::Levels levels) {
    Fire(contracts::VeltoEvent::Position, devices::PositionArguments(frames, levels));
}

void PlaybackCompanion::OnEndOfData() {
    Fire(contracts::VeltoEvent::EndOfData, {});
}

void PlaybackCompanion::Fire(contracts::VeltoEvent event, std::span<const VARIANT> arguments) {
    // A handler may let go of the last reference.
    const automation::ComPtr<IUnknown> alive(Identity());
    automation::FireEvent(points_.At(0), static_cast<DISPID>(event), arguments);
}

}  // namespace mavrin2::velto
