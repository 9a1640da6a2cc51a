#include "control/server/view_style.h"

#include <algorithm>

#include "control/objects/private_interfaces.h"
#include "platform/font_object.h"

namespace mavrin2::server {

using interfaces::IMavrin2Colors;
using interfaces::IMavrin2Scale;
using objects::IColorSettings;
using objects::IScaleSettings;

namespace {

constexpr std::int16_t kTimeTypes = 2;
constexpr std::int16_t kLevelTypes = 3;

template <class Private, class Public>
automation::ComPtr<Private> Own(const automation::ComPtr<Public>& object) {
    automation::ComPtr<Private> own;
    if (object) object->QueryInterface(Private::Id, own.PutVoid());
    return own;
}

// The colours of an object that is not the control's own.
view::ColorSettings ReadColors(IMavrin2Colors& object) {
    view::ColorSettings settings;
    const auto read = [&]<class Value, class Field>(
                          HRESULT (STDMETHODCALLTYPE IMavrin2Colors::*getter)(Value*),
                          Field view::ColorSettings::*field) {
        Value value{};
        if (SUCCEEDED((object.*getter)(&value))) settings.Set(field, static_cast<Field>(value));
    };
#define READ(name, ...) read(&IMavrin2Colors::get_##name, &view::ColorSettings::name);
    MAVRIN2_COLORS(READ)
    MAVRIN2_HUES(READ)
#undef READ
    return settings;
}

// By value: a host may put in another object from inside a call of this one.
// NOLINTBEGIN(performance-unnecessary-value-param)
view::ScaleSettings ScaleOf(automation::ComPtr<IMavrin2Scale> object) {
    view::ScaleSettings settings;
    if (!object) return settings;
    if (const auto own = Own<IScaleSettings>(object)) return own->Get();
    object->get_Type(&settings.Type);
    object->get_Visible(&settings.Visible);
    object->get_Grid(&settings.Grid);
    object->get_Orientation(&settings.Orientation);
    return settings;
}

platform::FontDescription FontOf(automation::ComPtr<IMavrin2Scale> object) {
    automation::ComPtr<IDispatch> font;
    if (object) object->get_Font(font.Put());
    return platform::DescriptionOf(font.Get());
}

void LimitType(automation::ComPtr<IMavrin2Scale> object, std::int16_t types) {
    if (!object) return;
    const std::int16_t type = ScaleOf(object).Type;
    const std::int16_t limited = std::clamp<std::int16_t>(type, 1, types);
    if (limited == type) return;
    if (const auto own = Own<IScaleSettings>(object))
        own->Get().Type = limited;
    else
        object->put_Type(limited);
}
// NOLINTEND(performance-unnecessary-value-param)

}  // namespace

void ViewStyle::Release() {
    ScaleXObject.Reset();
    ScaleYObject.Reset();
    ColorsObject.Reset();
}

view::ColorSettings ViewStyle::Colors() const {
    const automation::ComPtr<IMavrin2Colors> object = ColorsObject;
    if (!object) return {};
    if (const auto own = Own<IColorSettings>(object)) return own->Get();
    return ReadColors(*object.Get());
}

view::ScaleSettings ViewStyle::ScaleX() const {
    return ScaleOf(ScaleXObject);
}

view::ScaleSettings ViewStyle::ScaleY() const {
    return ScaleOf(ScaleYObject);
}

platform::FontDescription ViewStyle::ScaleXFont() const {
    return FontOf(ScaleXObject);
}

platform::FontDescription ViewStyle::ScaleYFont() const {
    return FontOf(ScaleYObject);
}

void ViewStyle::LimitScaleTypes() {
    LimitType(ScaleXObject, kTimeTypes);
    LimitType(ScaleYObject, kLevelTypes);
}

}  // namespace mavrin2::server
