#include "companions/dusoro/sound_inspector_object.h"

#include <algorithm>
#include <limits>

#include "automation/text.h"

namespace mavrin2::dusoro {
namespace {

template <class Target, class Value>
HRESULT Give(Target* target, Value value) {
    if (!target) return E_POINTER;
    *target = static_cast<Target>(value);
    return S_OK;
}

HRESULT Give(VARIANT_BOOL* target, bool value) {
    return Give(target, value ? VARIANT_TRUE : VARIANT_FALSE);
}

LONG Bounded(std::int64_t value) {
    return static_cast<LONG>(
        std::min<std::int64_t>(value, std::numeric_limits<std::int32_t>::max()));
}

}  // namespace

STDMETHODIMP SoundInspectorObject::Inspect(BSTR fileName) {
    return automation::Guarded([&]() -> HRESULT {
        reader_.reset();
        auto opened = files_.Open(automation::ToPath(automation::Bstr::View(fileName)),
                                  FormatType::Default, {}, true);
        reader_ = std::move(opened.Result);
        return reader_ ? S_OK : E_FAIL;
    });
}

STDMETHODIMP SoundInspectorObject::Skip(LONG count, LONG* frames) {
    return automation::Guarded([&]() -> HRESULT {
        if (!frames) return E_POINTER;
        *frames = 0;
        if (count < 0) return E_INVALIDARG;
        if (!reader_) return E_UNEXPECTED;
        constexpr std::size_t kBlock = 16384;
        const auto channels = static_cast<std::size_t>(Description().Delivered.Channels);
        block_.resize(kBlock * channels);
        auto left = static_cast<std::size_t>(count);
        while (left > 0) {
            const std::size_t asked = std::min(left, kBlock);
            const std::size_t got = reader_->Read(std::span(block_).first(asked * channels));
            *frames += static_cast<LONG>(got);
            left -= got;
            if (got < asked) break;
        }
        return S_OK;
    });
}

STDMETHODIMP SoundInspectorObject::get_FormatText(BSTR* Value) {
    return automation::Guarded([&]() -> HRESULT {
        if (!Value) return E_POINTER;
        *Value = nullptr;
        *Value = automation::NewBstr(Description().Text);
        return S_OK;
    });
}

STDMETHODIMP SoundInspectorObject::get_Frequency(LONG* Value) {
    return automation::Guarded([&] { return Give(Value, Description().SourceRate); });
}

STDMETHODIMP SoundInspectorObject::get_Channels(LONG* Value) {
    return automation::Guarded([&] { return Give(Value, Description().SourceChannels); });
}

STDMETHODIMP SoundInspectorObject::get_BitsPerSample(LONG* Value) {
    return automation::Guarded(
        [&] { return Give(Value, reader_ ? Description().BitsPerSample : 0); });
}

STDMETHODIMP SoundInspectorObject::get_PlainPcm(VARIANT_BOOL* Value) {
    return automation::Guarded([&] { return Give(Value, Description().PlainPcm); });
}

STDMETHODIMP SoundInspectorObject::get_Frames(DOUBLE* Value) {
    return automation::Guarded([&] { return Give(Value, Description().Frames); });
}

STDMETHODIMP SoundInspectorObject::get_StatedFrames(DOUBLE* Value) {
    return automation::Guarded([&] { return Give(Value, Description().StatedFrames); });
}

STDMETHODIMP SoundInspectorObject::get_DamagedBlocks(LONG* Value) {
    return Give(Value, Bounded(Faults().DamagedBlocks));
}

STDMETHODIMP SoundInspectorObject::get_LimitedSamples(DOUBLE* Value) {
    return Give(Value, Faults().LimitedSamples);
}

STDMETHODIMP SoundInspectorObject::get_ChecksumDiffers(VARIANT_BOOL* Value) {
    return Give(Value, Faults().ChecksumDiffers);
}

STDMETHODIMP SoundInspectorObject::get_EndMissing(VARIANT_BOOL* Value) {
    return Give(Value, Faults().EndMissing);
}

}  // namespace mavrin2::dusoro
