#include "control/server/view_style.h"

#include <algorithm>

#include "control/objects/private_interfaces.h"
#include "control/view/hls.h"
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

// Of an object that somebody else has made.
view::ColorSettings ReadColors(IMavrin2Colors& object) {
    view::ColorSettings settings;
    const auto read = [&]<class Value, class Field>(
                          HRESULT (STDMETHODCALLTYPE IMavrin2Colors::*getter)(Value*),
                          Field& field) {
        Value value{};
        if (SUCCEEDED((object.*getter)(&value))) field = static_cast<Field>(value);
    };
    read(&IMavrin2Colors::get_Font, settings.Font);
    read(&IMavrin2Colors::get_SelectDigitalWaveform, settings.SelectDigitalWaveform);
    read(&IMavrin2Colors::get_SelectCenterLine, settings.SelectCenterLine);
    read(&IMavrin2Colors::get_SelectBackground, settings.SelectBackground);
    read(&IMavrin2Colors::get_SelectAnalogWaveform, settings.SelectAnalogWaveform);
    read(&IMavrin2Colors::get_Scales, settings.Scales);
    read(&IMavrin2Colors::get_PlayCursor, settings.PlayCursor);
    read(&IMavrin2Colors::get_Grid, settings.Grid);
    read(&IMavrin2Colors::get_DigitalWaveform, settings.DigitalWaveform);
    read(&IMavrin2Colors::get_Cursor, settings.Cursor);
    read(&IMavrin2Colors::get_CenterLine, settings.CenterLine);
    read(&IMavrin2Colors::get_Boundary, settings.Boundary);
    read(&IMavrin2Colors::get_Background, settings.Background);
    read(&IMavrin2Colors::get_AnalogWaveform, settings.AnalogWaveform);
    read(&IMavrin2Colors::get_CueMarker, settings.CueMarker);
    read(&IMavrin2Colors::get_RangeMarker, settings.RangeMarker);
    read(&IMavrin2Colors::get_RangeMarkerBackground, settings.RangeMarkerBackground);
    read(&IMavrin2Colors::get_SpectralLow, settings.SpectralLow);
    read(&IMavrin2Colors::get_SpectralHigh, settings.SpectralHigh);
    read(&IMavrin2Colors::get_SpectralSelectLow, settings.SpectralSelectLow);
    read(&IMavrin2Colors::get_SpectralSelectHigh, settings.SpectralSelectHigh);
    settings.DarkSelectShade = view::Darker(settings.DigitalWaveform, 40);
    settings.LightSelectShade = view::Darker(settings.DigitalWaveform, 20);
    return settings;
}

view::ScaleSettings ScaleOf(const automation::ComPtr<IMavrin2Scale>& object) {
    view::ScaleSettings settings;
    if (!object) return settings;
    if (const auto own = Own<IScaleSettings>(object)) return own->Get();
    object->get_Type(&settings.Type);
    object->get_Visible(&settings.Visible);
    object->get_Grid(&settings.Grid);
    object->get_Orientation(&settings.Orientation);
    return settings;
}

platform::FontDescription FontOf(const automation::ComPtr<IMavrin2Scale>& object) {
    automation::ComPtr<IDispatch> font;
    if (object) object->get_Font(font.Put());
    return platform::DescriptionOf(font.Get());
}

void LimitType(const automation::ComPtr<IMavrin2Scale>& object, std::int16_t types) {
    if (!object) return;
    const std::int16_t type = ScaleOf(object).Type;
    const std::int16_t limited = std::clamp<std::int16_t>(type, 1, types);
    if (limited == type) return;
    if (const auto own = Own<IScaleSettings>(object))
        own->Get().Type = limited;
    else
        object->put_Type(limited);
}

}  // namespace

void ViewStyle::Release() {
    ScaleXObject.Reset();
    ScaleYObject.Reset();
    ColorsObject.Reset();
}

view::ColorSettings ViewStyle::Colors() const {
    if (!ColorsObject) return {};
    if (const auto own = Own<IColorSettings>(ColorsObject)) return own->Get();
    return ReadColors(*ColorsObject.Get());
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
