#pragma once

#include <cstdint>
#include <functional>

#include "automation/counted.h"
#include "automation/interface_id.h"

namespace mavrin2::automation {

// What an object can say of the samples that it had to limit to full scale, for hosts that warn of
// them. The control answers for itself and for its companions; those of another maker need not have
// this interface.
struct ILimitedSamples : public IUnknown {
    static constexpr IID Id = {
        0x5ae3b71e, 0xaff3, 0x4cb1, {0x88, 0xd0, 0x43, 0xf0, 0x90, 0x17, 0x11, 0x0d}};

    // Samples beyond full scale in all that the object has done since it was made. One that is
    // limited by several steps is counted by each.
    virtual HRESULT STDMETHODCALLTYPE get_LimitedSamples(DOUBLE* Value) = 0;
};

// The interface as a part of an object, which asks a function for the number.
class LimitedSamplesPart final : public InterfacePart<ILimitedSamples> {
public:
    LimitedSamplesPart(IUnknown* identity, std::function<std::int64_t()> count)
        : InterfacePart(identity), count_(std::move(count)) {}

    STDMETHODIMP get_LimitedSamples(DOUBLE* Value) override {
        if (!Value) return E_POINTER;
        *Value = static_cast<DOUBLE>(count_());
        return S_OK;
    }

private:
    std::function<std::int64_t()> count_;
};

// 0 for an object that cannot say, and for none.
inline std::int64_t LimitedSamplesOf(IUnknown* object) {
    ComPtr<ILimitedSamples> limited;
    DOUBLE count = 0;
    if (object && SUCCEEDED(object->QueryInterface(ILimitedSamples::Id, limited.PutVoid())))
        limited->get_LimitedSamples(&count);
    return static_cast<std::int64_t>(count);
}

}  // namespace mavrin2::automation
