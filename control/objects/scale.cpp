#include "control/objects/scale.h"

#include <algorithm>

#include "platform/font_object.h"

namespace mavrin2::objects {

HRESULT CMavrin2Scale::FinalConstruct() {
    return platform::NewFont(platform::FontDescription(), IID_IDispatch, font_.PutVoid());
}

STDMETHODIMP CMavrin2Scale::get_Font(IDispatch** Value) {
    if (!Value) return E_POINTER;
    automation::ComPtr<IDispatch> font = font_;
    *Value = font.Detach();
    return S_OK;
}

STDMETHODIMP CMavrin2Scale::put_Font(IDispatch* Value) {
    if (!Value) return S_OK;
    font_ = automation::ComPtr<IDispatch>(Value);
    return Apply();
}

STDMETHODIMP CMavrin2Scale::put_Orientation(SHORT Value) {
    // A value out of range is laid out again even where its limit is what there was.
    if (settings_.Values.Orientation == Value) return S_OK;
    settings_.Values.Orientation = std::clamp<SHORT>(Value, 1, 2);
    return Apply();
}

HRESULT CMavrin2Scale::Get(SHORT* target, std::int16_t view::ScaleSettings::*field) const {
    if (!target) return E_POINTER;
    *target = settings_.Values.*field;
    return S_OK;
}

HRESULT CMavrin2Scale::Put(std::int16_t view::ScaleSettings::*field, SHORT value) {
    if (settings_.Values.*field == value) return S_OK;
    settings_.Values.*field = value;
    return Apply();
}

HRESULT CMavrin2Scale::Apply() {
    return view_.Do([](view::ViewOperations& view) { view.ApplyScaleSettings(); });
}

}  // namespace mavrin2::objects
