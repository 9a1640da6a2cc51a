#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// Which channels are shown, and which ones edits and operations act on: the flags are those of
// channel Num. Every member succeeds.
struct IMavrin2Channel : public IDispatch {
    static constexpr IID Id = IID_IMavrin2Channel;

    // Channels of the document.
    virtual HRESULT STDMETHODCALLTYPE get_Count(SHORT* Value) = 0;
    // From 1; lowered to Count when it is read. 0 at first: flags then read 0 and ignore writes.
    virtual HRESULT STDMETHODCALLTYPE get_Num(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Num(SHORT Value) = 0;
    // 0 or what was written.
    virtual HRESULT STDMETHODCALLTYPE get_Visible(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Visible(SHORT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Operation(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Operation(SHORT Value) = 0;
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Channel>();
}  // namespace mavrin2::automation
