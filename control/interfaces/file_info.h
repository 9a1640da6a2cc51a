#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/enumerations.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// The sound's format. Every member succeeds, with or without a document.
struct IMavrin2FileInfo : public IDispatch {
    static constexpr IID Id = IID_IMavrin2FileInfo;

    virtual HRESULT STDMETHODCALLTYPE get_Frequency(FrequencyConstants* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Channels(ChannelsConstants* Value) = 0;
    // Of the file last opened or saved.
    virtual HRESULT STDMETHODCALLTYPE get_FormatString(BSTR* Value) = 0;
    // Whether Save writes markers and tags; kept as given, 1 at first.
    virtual HRESULT STDMETHODCALLTYPE get_SaveExtraInfoEnabled(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SaveExtraInfoEnabled(VARIANT_BOOL Value) = 0;
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2FileInfo>();
}  // namespace mavrin2::automation
