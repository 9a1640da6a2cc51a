#pragma once

#include <algorithm>
#include <deque>
#include <string>
#include <vector>

#include "automation/connection_points.h"
#include "automation/object.h"
#include "automation/safe_array.h"
#include "automation/text.h"
#include "automation/variant.h"

namespace mavrin2::tests {

// What the fakes of both device companions have in common: they write down what is called, raise
// events when a test wants them to, and have one device with one line.
template <class Self, class Interface>
class FakeDevice : public automation::AutomationObject<Self, Interface> {
public:
    using Block = std::vector<std::int16_t>;

    FakeDevice(IUnknown* outer, const IID& events)
        : automation::AutomationObject<Self, Interface>(outer),
          points_(this->Identity(), {&events}) {}

    void* FindInterface(REFIID iid) {
        return IsEqualGUID(iid, IID_IConnectionPointContainer)
                   ? static_cast<IConnectionPointContainer*>(&points_)
                   : nullptr;
    }

    std::string Calls;     // separated by commas
    LONG StartCode = 0;    // what StartDevice answers
    bool Running = false;  // between StartDevice and StopDevice
    Block Recent;          // what GetRecentSamples answers, its last frames
    LONG Channels = 1;
    VARIANT_BOOL LineSwitch = 0;
    SHORT DeviceNum = 1;
    LONG LineVolume = 70;

    std::string Take() { return std::exchange(Calls, {}); }

    void Fire(auto event, const std::vector<LONG>& values = {}) {
        std::vector<VARIANT> arguments;
        arguments.reserve(values.size());
        for (const LONG value : values)
            arguments.push_back(automation::Variant::Int32(value));
        automation::FireEvent(points_.At(0), static_cast<DISPID>(event), arguments);
    }

    STDMETHODIMP PrepareDevice() override { return Record("Prepare"); }
    STDMETHODIMP StopDevice() override {
        Running = false;
        return Record("Stop");
    }
    STDMETHODIMP SetFormat(LONG sampleRate, LONG channels) override {
        Channels = channels;
        return Record("Format " + std::to_string(sampleRate) + " " + std::to_string(channels));
    }
    STDMETHODIMP GetRecentSamples(LONG count, SAFEARRAY** samples) override {
        Record("Recent " + std::to_string(count));
        const auto wanted = static_cast<std::size_t>(std::max(count * Channels, LONG{0}));
        const std::size_t given = std::min(wanted, Recent.size());
        *samples =
            ArrayOf({Recent.end() - static_cast<std::ptrdiff_t>(given), Recent.end()}).Detach();
        return S_OK;
    }
    STDMETHODIMP put_TimerInterval(SHORT milliseconds) override {
        return Record("Timer " + std::to_string(milliseconds));
    }
    STDMETHODIMP StartDevice(LONG* error) override {
        *error = StartCode;
        Running = StartCode == 0;
        return Record("Start");
    }
    STDMETHODIMP get_DeviceCount(SHORT* count) override { return Give(count, SHORT{3}); }
    STDMETHODIMP get_DeviceName(BSTR* name) override {
        *name = automation::NewBstr(std::string_view("Fake device"));
        return S_OK;
    }
    STDMETHODIMP get_DeviceNum(SHORT* number) override { return Give(number, DeviceNum); }
    STDMETHODIMP put_DeviceNum(SHORT number) override { return Give(&DeviceNum, number); }

    STDMETHODIMP get_LineCount(SHORT* count) override { return Give(count, SHORT{1}); }
    STDMETHODIMP get_LineName(BSTR* name) override {
        *name = automation::NewBstr(std::string_view("Master"));
        return S_OK;
    }
    STDMETHODIMP get_LineNum(SHORT* number) override { return Give(number, SHORT{1}); }
    STDMETHODIMP put_LineNum(SHORT) override { return S_OK; }
    STDMETHODIMP get_LineHasVolume(VARIANT_BOOL* has) override { return Give(has, SHORT{-1}); }
    STDMETHODIMP get_LineVolume(LONG* percent) override { return Give(percent, LineVolume); }
    STDMETHODIMP put_LineVolume(LONG percent) override { return Give(&LineVolume, percent); }
    STDMETHODIMP get_LineHasBalance(VARIANT_BOOL* has) override { return Give(has, SHORT{-1}); }
    STDMETHODIMP get_LineBalance(SHORT* balance) override { return Give(balance, SHORT{0}); }
    STDMETHODIMP put_LineBalance(SHORT) override { return S_OK; }
    STDMETHODIMP get_LineHasSwitch(VARIANT_BOOL* has) override { return Give(has, SHORT{-1}); }
    STDMETHODIMP get_LineSwitch(VARIANT_BOOL* on) override { return Give(on, LineSwitch); }
    STDMETHODIMP put_LineSwitch(VARIANT_BOOL on) override { return Give(&LineSwitch, on); }
    STDMETHODIMP get_LineControlCount(SHORT* count) override { return Give(count, SHORT{0}); }
    STDMETHODIMP get_LineControlName(SHORT, BSTR*) override { return E_INVALIDARG; }
    STDMETHODIMP get_LineControlValue(SHORT, VARIANT*) override { return E_INVALIDARG; }
    STDMETHODIMP put_LineControlValue(SHORT, VARIANT) override { return E_INVALIDARG; }

protected:
    static automation::SafeArray<std::int16_t> ArrayOf(const Block& block) {
        automation::SafeArray<std::int16_t> array(block.size());
        std::ranges::copy(block,
                          automation::ArrayView<std::int16_t>(array.Get()).Elements().begin());
        return array;
    }
    HRESULT Record(const std::string& call) {
        Calls += (Calls.empty() ? "" : ", ") + call;
        return S_OK;
    }
    template <class Value>
    static HRESULT Give(Value* target, Value value) {
        *target = value;
        return S_OK;
    }

private:
    automation::ConnectionPoints points_;
};

}  // namespace mavrin2::tests
