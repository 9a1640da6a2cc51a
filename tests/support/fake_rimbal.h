#pragma once

#include <map>

#include "companions/contracts/rimbal.h"
#include "tests/support/fake_device.h"

namespace mavrin2::tests {

// A recorder that hears what a test gives it. It keeps its settings by name.
class FakeRimbal final : public FakeDevice<FakeRimbal, contracts::IRimbal2> {
public:
    explicit FakeRimbal(IUnknown* outer) : FakeDevice(outer, contracts::DIID_IRimbal2Events) {}
    ~FakeRimbal() = default;

    std::deque<Block> Blocks;  // that ReadBlock has still to give
    std::map<std::string, double> Settings;

    // A block is complete.
    void Hear(const Block& block) {
        Blocks.push_back(block);
        Fire(contracts::RimbalEvent::BlockReady);
    }
    // As if it had recorded so many frames, with levels 33 and 44.
    void RecordTo(LONG frames) { Fire(contracts::RimbalEvent::Position, {frames, 33, 44}); }
    void ChangeGain(LONG gain) { Fire(contracts::RimbalEvent::Gain, {gain}); }

    STDMETHODIMP StartDevice(LONG* error) override {
        Blocks.clear();
        return FakeDevice::StartDevice(error);
    }
    STDMETHODIMP ReadBlock(SAFEARRAY** samples) override {
        const Block block = Blocks.empty() ? Block() : Blocks.front();
        if (!Blocks.empty()) Blocks.pop_front();
        *samples = ArrayOf(block).Detach();
        return S_OK;
    }
    STDMETHODIMP SetBufferFrames(LONG frames) override {
        return Record("Buffer " + std::to_string(frames));
    }

    STDMETHODIMP get_NotchFilterFrequency(FLOAT* value) override {
        return Get("NotchFilterFrequency", value);
    }
    STDMETHODIMP put_NotchFilterFrequency(FLOAT value) override {
        return Put("NotchFilterFrequency", value);
    }
    STDMETHODIMP get_NotchFilterEnabled(VARIANT_BOOL* value) override {
        return Get("NotchFilterEnabled", value);
    }
    STDMETHODIMP put_NotchFilterEnabled(VARIANT_BOOL value) override {
        return Put("NotchFilterEnabled", value);
    }
    STDMETHODIMP get_HighPassFilterEnabled(VARIANT_BOOL* value) override {
        return Get("HighPassFilterEnabled", value);
    }
    STDMETHODIMP put_HighPassFilterEnabled(VARIANT_BOOL value) override {
        return Put("HighPassFilterEnabled", value);
    }
    STDMETHODIMP get_LowPassFilterEnabled(VARIANT_BOOL* value) override {
        return Get("LowPassFilterEnabled", value);
    }
    STDMETHODIMP put_LowPassFilterEnabled(VARIANT_BOOL value) override {
        return Put("LowPassFilterEnabled", value);
    }
    STDMETHODIMP get_HighPassFilterFrequency(FLOAT* value) override {
        return Get("HighPassFilterFrequency", value);
    }
    STDMETHODIMP put_HighPassFilterFrequency(FLOAT value) override {
        return Put("HighPassFilterFrequency", value);
    }
    STDMETHODIMP get_LowPassFilterFrequency(FLOAT* value) override {
        return Get("LowPassFilterFrequency", value);
    }
    STDMETHODIMP put_LowPassFilterFrequency(FLOAT value) override {
        return Put("LowPassFilterFrequency", value);
    }
    STDMETHODIMP get_AccuAttackTime(LONG* value) override { return Get("AccuAttackTime", value); }
    STDMETHODIMP put_AccuAttackTime(LONG value) override { return Put("AccuAttackTime", value); }
    STDMETHODIMP get_AccuAttackLevel(LONG* value) override { return Get("AccuAttackLevel", value); }
    STDMETHODIMP put_AccuAttackLevel(LONG value) override { return Put("AccuAttackLevel", value); }
    STDMETHODIMP get_AccuReleaseTime(LONG* value) override { return Get("AccuReleaseTime", value); }
    STDMETHODIMP put_AccuReleaseTime(LONG value) override { return Put("AccuReleaseTime", value); }
    STDMETHODIMP get_AccuReleaseLevel(LONG* value) override {
        return Get("AccuReleaseLevel", value);
    }
    STDMETHODIMP put_AccuReleaseLevel(LONG value) override {
        return Put("AccuReleaseLevel", value);
    }
    STDMETHODIMP get_AccuEnabled(VARIANT_BOOL* value) override { return Get("AccuEnabled", value); }
    STDMETHODIMP put_AccuEnabled(VARIANT_BOOL value) override { return Put("AccuEnabled", value); }
    STDMETHODIMP get_AGCLowLevel(LONG* value) override { return Get("AGCLowLevel", value); }
    STDMETHODIMP put_AGCLowLevel(LONG value) override { return Put("AGCLowLevel", value); }
    STDMETHODIMP get_AGCHighLevel(LONG* value) override { return Get("AGCHighLevel", value); }
    STDMETHODIMP put_AGCHighLevel(LONG value) override { return Put("AGCHighLevel", value); }
    STDMETHODIMP get_AGCAttackTime(LONG* value) override { return Get("AGCAttackTime", value); }
    STDMETHODIMP put_AGCAttackTime(LONG value) override { return Put("AGCAttackTime", value); }
    STDMETHODIMP get_AGCEnabled(VARIANT_BOOL* value) override { return Get("AGCEnabled", value); }
    STDMETHODIMP put_AGCEnabled(VARIANT_BOOL value) override { return Put("AGCEnabled", value); }

private:
    template <class Value>
    HRESULT Get(const char* name, Value* value) {
        *value = static_cast<Value>(Settings[name]);
        return S_OK;
    }
    HRESULT Put(const char* name, double value) {
        Settings[name] = value;
        return Record(std::string(name) + " " + std::to_string(static_cast<int>(value)));
    }
};

}  // namespace mavrin2::tests
