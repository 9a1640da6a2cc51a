#include "control/objects/colors.h"

namespace mavrin2::objects {
namespace {

template <class Value, class Field>
HRESULT Read(Value* target, Field field) {
    if (!target) return E_POINTER;
    *target = static_cast<Value>(field);
    return S_OK;
}

}  // namespace

CMavrin2Colors::CMavrin2Colors(IUnknown* outer, std::uint32_t buttonFace)
    : AutomationObject(outer), settings_(Identity()) {
    settings_.Values.Scales = buttonFace;
}

// NOLINTBEGIN(bugprone-macro-parentheses): a type takes none.
#define DEFINE(type, name, change)                               \
    STDMETHODIMP CMavrin2Colors::get_##name(type* Value) {       \
        return Read(Value, settings_.Values.name);               \
    }                                                            \
    STDMETHODIMP CMavrin2Colors::put_##name(type Value) {        \
        settings_.Values.Set(&view::ColorSettings::name, Value); \
        return Show(Change::change);                             \
    }
#define DEFINE_COLOR(name, id, initial, change, help) DEFINE(OLE_COLOR, name, change)
#define DEFINE_HUE(name, id, initial, change, help) DEFINE(LONG, name, change)
MAVRIN2_COLORS(DEFINE_COLOR)
MAVRIN2_HUES(DEFINE_HUE)
#undef DEFINE_COLOR
#undef DEFINE_HUE
#undef DEFINE
// NOLINTEND(bugprone-macro-parentheses)

HRESULT CMavrin2Colors::Show(Change change) {
    return parts_.Do([&](Parts& parts) {
        parts.Markers.NewColor = settings_.Values.CueMarker;
        switch (change) {
            case Change::RebuildPens:
                parts.View.RebuildPens();
                return;
            case Change::RenderBackground:
                parts.View.RenderBackground();
                parts.View.Redraw();
                return;
            case Change::Redraw:
                parts.View.Redraw();
                return;
        }
    });
}

}  // namespace mavrin2::objects
