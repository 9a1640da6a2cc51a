#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/color_table.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// The colours of the picture, one property for each row of the table. Every member succeeds; a
// value is kept as given, and the picture is drawn anew.
struct IMavrin2Colors : public IDispatch {
    static constexpr IID Id = IID_IMavrin2Colors;

#define DECLARE_COLOR(name, ...)                                        \
    virtual HRESULT STDMETHODCALLTYPE get_##name(OLE_COLOR* Value) = 0; \
    virtual HRESULT STDMETHODCALLTYPE put_##name(OLE_COLOR Value) = 0;
#define DECLARE_HUE(name, ...)                                     \
    virtual HRESULT STDMETHODCALLTYPE get_##name(LONG* Value) = 0; \
    virtual HRESULT STDMETHODCALLTYPE put_##name(LONG Value) = 0;
    MAVRIN2_COLORS(DECLARE_COLOR)
    MAVRIN2_HUES(DECLARE_HUE)
#undef DECLARE_COLOR
#undef DECLARE_HUE
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Colors>();
}  // namespace mavrin2::automation
