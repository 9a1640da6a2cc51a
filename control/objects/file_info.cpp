#include "control/objects/file_info.h"

#include "automation/text.h"

namespace mavrin2::objects {

using editor::DocumentFormat;
using interfaces::ChannelsConstants;
using interfaces::FrequencyConstants;

STDMETHODIMP CMavrin2FileInfo::get_Frequency(FrequencyConstants* Value) {
    return format_.Read(
        Value, [](const DocumentFormat& f) { return f.Frequency; }, FrequencyConstants{});
}

STDMETHODIMP CMavrin2FileInfo::get_Channels(ChannelsConstants* Value) {
    return format_.Read(
        Value, [](const DocumentFormat& f) { return f.Channels; }, ChannelsConstants{});
}

STDMETHODIMP CMavrin2FileInfo::get_FormatString(BSTR* Value) {
    return automation::Guarded([&]() -> HRESULT {
        if (!Value) return E_POINTER;
        *Value = nullptr;
        std::string text;
        format_.Do([&](const DocumentFormat& f) { text = f.FormatDescription; });
        *Value = automation::NewBstr(std::string_view(text));
        return S_OK;
    });
}

STDMETHODIMP CMavrin2FileInfo::get_SaveExtraInfoEnabled(VARIANT_BOOL* Value) {
    if (!Value) return E_POINTER;
    *Value = extra_.SaveExtraInfoEnabled;
    return S_OK;
}

STDMETHODIMP CMavrin2FileInfo::put_SaveExtraInfoEnabled(VARIANT_BOOL Value) {
    extra_.SaveExtraInfoEnabled = Value;
    return S_OK;
}

}  // namespace mavrin2::objects
