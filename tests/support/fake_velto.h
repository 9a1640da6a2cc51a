#pragma once

#include "companions/contracts/velto.h"
#include "tests/support/fake_device.h"

namespace mavrin2::tests {

// A player that plays when a test wants it to.
class FakeVelto final : public FakeDevice<FakeVelto, contracts::IVelto2> {
public:
    explicit FakeVelto(IUnknown* outer) : FakeDevice(outer, contracts::DIID_IVelto2Events) {}
    ~FakeVelto() = default;

    std::vector<Block> Queued;  // since the last start

    // As if it had played so many frames, with levels 11 and 22.
    void PlayTo(LONG frames) { Fire(contracts::VeltoEvent::Position, {frames, 11, 22}); }
    void FinishBlock() { Fire(contracts::VeltoEvent::BlockDone); }
    void RunOut() { Fire(contracts::VeltoEvent::EndOfData); }

    STDMETHODIMP StartDevice(LONG* error) override {
        Queued.clear();
        return FakeDevice::StartDevice(error);
    }
    STDMETHODIMP QueueBlock(SAFEARRAY** samples) override {
        const auto elements = automation::ArrayView<std::int16_t>(*samples).Elements();
        Queued.emplace_back(elements.begin(), elements.end());
        return Record("Queue " + std::to_string(elements.size()));
    }
    STDMETHODIMP put_ExtraLatency(LONG milliseconds) override {
        return Record("Latency " + std::to_string(milliseconds));
    }
    STDMETHODIMP SetOutputChannels(LONG channels) override {
        return Record("Channels " + std::to_string(channels));
    }
    STDMETHODIMP get_MasterVolume(LONG* percent) override { return Give(percent, volume_); }
    STDMETHODIMP put_MasterVolume(LONG percent) override { return Give(&volume_, percent); }

private:
    LONG volume_ = 50;
};

}  // namespace mavrin2::tests
