#pragma once

#include <cstdint>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "automation/connection_points.h"
#include "automation/object.h"
#include "automation/safe_array.h"
#include "companions/contracts/companion_events.h"
#include "companions/contracts/kestrin.h"

namespace mavrin2::tests {

// A transform companion whose operations all do what a test says.
class FakeKestrin final : public automation::AutomationObject<FakeKestrin, contracts::IKestrin2> {
public:
    explicit FakeKestrin(IUnknown* outer)
        : AutomationObject(outer),
          connectionPoints_(Identity(), {&contracts::DIID_IKestrin2Events}) {}
    ~FakeKestrin() = default;

    void* FindInterface(REFIID iid) {
        return IsEqualGUID(iid, IID_IConnectionPointContainer)
                   ? static_cast<IConnectionPointContainer*>(&connectionPoints_)
                   : nullptr;
    }

    // What an operation makes of a block.
    std::function<HRESULT(std::vector<std::int16_t>& samples)> Process;
    // Instead of that, for what is not an array of samples any more.
    std::function<void(SAFEARRAY** block)> Replace;

    // Every call in its order, as "Name(arguments)", operations with the number of samples.
    std::string Calls;

    void FireProgress(LONG percent) {
        VARIANT argument{};
        argument.vt = VT_I4;
        argument.lVal = percent;
        automation::FireEvent(connectionPoints_.At(0),
                              static_cast<DISPID>(contracts::KestrinEvent::Progress),
                              {&argument, 1});
    }
    void FireDone() {
        automation::FireEvent(connectionPoints_.At(0),
                              static_cast<DISPID>(contracts::KestrinEvent::Done), {});
    }

// Operations by their parameters: floats, arrays and an integer.
#define OPERATION_0(name)                           \
    STDMETHODIMP name(SAFEARRAY** block) override { \
        return Operate(#name, block);               \
    }
#define OPERATION_1(name)                                    \
    STDMETHODIMP name(SAFEARRAY** block, FLOAT a) override { \
        return Operate(#name, block, a);                     \
    }
#define OPERATION_2(name)                                             \
    STDMETHODIMP name(SAFEARRAY** block, FLOAT a, FLOAT b) override { \
        return Operate(#name, block, a, b);                           \
    }
#define OPERATION_3(name)                                                      \
    STDMETHODIMP name(SAFEARRAY** block, FLOAT a, FLOAT b, FLOAT c) override { \
        return Operate(#name, block, a, b, c);                                 \
    }
#define OPERATION_6(name)                                                                      \
    STDMETHODIMP name(SAFEARRAY** block, FLOAT a, FLOAT b, FLOAT c, FLOAT d, FLOAT e, FLOAT f) \
        override {                                                                             \
        return Operate(#name, block, a, b, c, d, e, f);                                        \
    }
    OPERATION_0(Silence)
    OPERATION_0(Reverse)
    OPERATION_0(Invert)
    OPERATION_1(Resample)
    OPERATION_1(PitchShift)
    OPERATION_1(TimeStretch)
    OPERATION_1(Amplify)
    OPERATION_2(TrimStart)
    OPERATION_2(TrimEnd)
    OPERATION_2(Fade)
    OPERATION_2(LowPassFilter)
    OPERATION_2(HighPassFilter)
    OPERATION_2(BandPassFilter)
    OPERATION_2(NotchFilter)
    OPERATION_3(DeleteSilence)
    OPERATION_3(Vibrato)
    OPERATION_3(Compressor)
    OPERATION_3(Expander)
    OPERATION_3(Delay)
    OPERATION_3(Phaser)
    OPERATION_3(PeakEQFilter)
    OPERATION_3(LowShelfFilter)
    OPERATION_3(HighShelfFilter)
    OPERATION_6(Flanger)
    OPERATION_6(Chorus)
#undef OPERATION_0
#undef OPERATION_1
#undef OPERATION_2
#undef OPERATION_3
#undef OPERATION_6
    STDMETHODIMP MixStereoChannels(SAFEARRAY** block, FLOAT a, FLOAT b, FLOAT c, FLOAT d) override {
        return Operate("MixStereoChannels", block, a, b, c, d);
    }
    STDMETHODIMP AddNoise(SAFEARRAY** block, FLOAT level, LONG type) override {
        return Operate("AddNoise", block, level, type);
    }
    STDMETHODIMP Normalize(SAFEARRAY** block, FLOAT level, VARIANT_BOOL adjust) override {
        return Operate("Normalize", block, level, adjust);
    }
    STDMETHODIMP Reverb(SAFEARRAY** block, FLOAT a, FLOAT b, FLOAT c, FLOAT d, FLOAT e,
                        LONG taps) override {
        return Operate("Reverb", block, a, b, c, d, e, taps);
    }
    STDMETHODIMP Envelope(SAFEARRAY** block, SAFEARRAY** points) override {
        return Operate("Envelope", block, Text(points));
    }
    STDMETHODIMP Equalizer(SAFEARRAY** block, SAFEARRAY** gains, SAFEARRAY** bands) override {
        return Operate("Equalizer", block, Text(gains), Text(bands));
    }
    STDMETHODIMP FFTFilter(SAFEARRAY** block, SAFEARRAY** gains) override {
        return Operate("FFTFilter", block, Text(gains));
    }
    STDMETHODIMP FIRFilter(SAFEARRAY** block, SAFEARRAY** bands, SAFEARRAY** gains,
                           SAFEARRAY** weights, LONG quality) override {
        return Operate("FIRFilter", block, Text(bands), Text(gains), Text(weights), quality);
    }
    STDMETHODIMP Abort() override {
        return Record("Abort");
    }
    STDMETHODIMP put_SetSmoothingFirst(SHORT value) override {
        return Record("First", value);
    }
    STDMETHODIMP put_SetSmoothingSecond(SHORT value) override {
        return Record("Second", value);
    }
    STDMETHODIMP put_SetSmoothTime(LONG value) override {
        return Record("Time", value);
    }
    STDMETHODIMP put_SetSampleRate(LONG value) override {
        return Record("Rate", value);
    }
    STDMETHODIMP put_SetChannelCount(LONG value) override {
        return Record("Count", value);
    }

private:
    static std::string Text(SAFEARRAY** array);

    template <class... Arguments>
    HRESULT Record(const char* name, const Arguments&... arguments) {
        std::ostringstream text;
        [[maybe_unused]] const char* before = "(";
        text << name;
        ((text << before << arguments, before = ","), ...);
        Calls += (Calls.empty() ? "" : " ") + text.str() + (sizeof...(arguments) ? ")" : "");
        return S_OK;
    }
    template <class... Arguments>
    HRESULT Operate(const char* name, SAFEARRAY** block, const Arguments&... arguments) {
        const std::size_t count = automation::ArrayView<std::int16_t>(*block).Elements().size();
        Record(name, count, arguments...);
        return Run(block);
    }
    HRESULT Run(SAFEARRAY** block);

    automation::ConnectionPoints connectionPoints_;
};

}  // namespace mavrin2::tests
