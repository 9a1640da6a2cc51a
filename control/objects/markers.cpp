#include "control/objects/markers.h"

#include <utility>

#include "automation/text.h"
#include "platform/picture_object.h"

namespace mavrin2::objects {

using automation::Bstr;
using editor::MarkerPicture;
using editor::MarkerRecord;
using editor::Markers;
using editor::MarkerTexts;

namespace {

constexpr int kPictureWidth = 10;

}  // namespace

STDMETHODIMP CMavrin2Markers::Insert(LONG Position, LONG Length, BSTR Label, BSTR Note) {
    return markers_.Do([&](Markers& markers) {
        MarkerTexts texts;
        texts.Label = Bstr::View(Label);
        texts.Note = Bstr::View(Note);
        markers.Insert(Position, Length, std::move(texts));
    });
}

STDMETHODIMP CMavrin2Markers::Delete() {
    return markers_.Do([](Markers& markers) { markers.Delete(); });
}

STDMETHODIMP CMavrin2Markers::get_Count(LONG* Value) {
    return markers_.Read(
        Value, [](Markers& markers) { return markers.Count(); }, LONG{0});
}

STDMETHODIMP CMavrin2Markers::get_Num(LONG* Value) {
    return markers_.Read(
        Value, [](Markers& markers) { return markers.Num(); }, LONG{0});
}

STDMETHODIMP CMavrin2Markers::put_Num(LONG Value) {
    return markers_.Do([&](Markers& markers) { markers.SetNum(Value); });
}

template <class Value, class Field>
HRESULT CMavrin2Markers::Get(Value* target, Field MarkerRecord::*field) const {
    return markers_.Read(
        target,
        [&](Markers& markers) {
            const MarkerRecord* marker = markers.Current();
            return marker ? marker->*field : Field{};
        },
        Value{});
}

HRESULT CMavrin2Markers::GetText(BSTR* target, Text text) const {
    if (!target) return E_POINTER;
    *target = nullptr;
    return automation::Guarded([&] {
        automation::OleStringView value;
        markers_.Do([&](Markers& markers) {
            if (const MarkerRecord* marker = markers.Current()) value = (*marker->Texts).*text;
        });
        *target = automation::NewBstr(value);
    });
}

HRESULT CMavrin2Markers::PutText(BSTR value, Text text) {
    return markers_.Do([&](Markers& markers) { markers.SetText(text, Bstr::View(value)); });
}

STDMETHODIMP CMavrin2Markers::get_Length(LONG* Value) {
    return Get(Value, &MarkerRecord::Length);
}

STDMETHODIMP CMavrin2Markers::put_Length(LONG Value) {
    return markers_.Do([&](Markers& markers) { markers.SetLength(Value); });
}

STDMETHODIMP CMavrin2Markers::get_Position(LONG* Value) {
    return Get(Value, &MarkerRecord::Position);
}

STDMETHODIMP CMavrin2Markers::put_Position(LONG Value) {
    return markers_.Do([&](Markers& markers) { markers.SetPosition(Value); });
}

STDMETHODIMP CMavrin2Markers::get_Label(BSTR* Value) {
    return GetText(Value, &MarkerTexts::Label);
}

STDMETHODIMP CMavrin2Markers::put_Label(BSTR Value) {
    return PutText(Value, &MarkerTexts::Label);
}

STDMETHODIMP CMavrin2Markers::get_Note(BSTR* Value) {
    return GetText(Value, &MarkerTexts::Note);
}

STDMETHODIMP CMavrin2Markers::put_Note(BSTR Value) {
    return PutText(Value, &MarkerTexts::Note);
}

STDMETHODIMP CMavrin2Markers::get_Text(BSTR* Value) {
    return GetText(Value, &MarkerTexts::Text);
}

STDMETHODIMP CMavrin2Markers::put_Text(BSTR Value) {
    return PutText(Value, &MarkerTexts::Text);
}

STDMETHODIMP CMavrin2Markers::get_Color(OLE_COLOR* Value) {
    return Get(Value, &MarkerRecord::Color);
}

STDMETHODIMP CMavrin2Markers::put_Color(OLE_COLOR Value) {
    return markers_.Do([&](Markers& markers) { markers.SetColor(Value); });
}

STDMETHODIMP CMavrin2Markers::get_Picture(IPictureDisp** Value) {
    if (!Value) return E_POINTER;
    *Value = nullptr;
    return markers_.Do([&](Markers& markers) {
        const MarkerRecord* marker = markers.Current();
        if (!marker) return;
        constexpr MarkerPicture kBlack{};
        const auto& picture = marker->Texts->Picture;
        platform::NewPicture(picture ? *picture : kBlack, kPictureWidth, Value);
    });
}

STDMETHODIMP CMavrin2Markers::put_Picture(IPictureDisp* Value) {
    return markers_.Do([&](Markers& markers) {
        if (!markers.Current()) return;
        MarkerPicture picture{};
        if (SUCCEEDED(platform::DrawPicture(Value, picture, kPictureWidth)))
            markers.SetPicture(picture);
    });
}

STDMETHODIMP CMavrin2Markers::get_CutPoint(LONG* Value) {
    return Get(Value, &MarkerRecord::CutPoint);
}

STDMETHODIMP CMavrin2Markers::put_CutPoint(LONG Value) {
    return markers_.Do([&](Markers& markers) { markers.PutCutPoint(Value); });
}

STDMETHODIMP CMavrin2Markers::Sort() {
    return markers_.Do([](Markers& markers) { markers.Sort(); });
}

STDMETHODIMP CMavrin2Markers::get_Play(LONG* Value) {
    return Get(Value, &MarkerRecord::Play);
}

STDMETHODIMP CMavrin2Markers::put_Play(LONG Value) {
    return markers_.Do([&](Markers& markers) { markers.SetPlay(Value); });
}

}  // namespace mavrin2::objects
