#pragma once

#include "automation/object.h"
#include "control/interfaces/colors.h"
#include "control/objects/attachment.h"
#include "control/objects/private_interfaces.h"
#include "control/view/hls.h"
#include "control/view/style.h"
#include "control/view/view_operations.h"

namespace mavrin2::objects {

// The colours that a host has chosen. A change is drawn at once.
class CMavrin2Colors final
    : public automation::AutomationObject<CMavrin2Colors, interfaces::IMavrin2Colors> {
public:
    // `buttonFace` is the system's colour, 0x00BBGGRR.
    CMavrin2Colors(IUnknown* outer, std::uint32_t buttonFace);
    ~CMavrin2Colors() = default;

    void Attach(view::ViewOperations& view, IUnknown* control) { view_.Attach(view, control); }
    void Detach() { view_.Detach(); }
    void* FindInterface(REFIID iid) {
        return IsEqualGUID(iid, IColorSettings::Id) ? static_cast<IColorSettings*>(&settings_)
                                                    : nullptr;
    }

    STDMETHODIMP get_Font(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::Font);
    }
    STDMETHODIMP put_Font(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::Font, Value, FollowUp::RebuildPens);
    }
    STDMETHODIMP get_SelectDigitalWaveform(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::SelectDigitalWaveform);
    }
    STDMETHODIMP put_SelectDigitalWaveform(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::SelectDigitalWaveform, Value, FollowUp::RebuildPens);
    }
    STDMETHODIMP get_SelectCenterLine(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::SelectCenterLine);
    }
    STDMETHODIMP put_SelectCenterLine(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::SelectCenterLine, Value, FollowUp::RebuildPens);
    }
    STDMETHODIMP get_SelectBackground(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::SelectBackground);
    }
    STDMETHODIMP put_SelectBackground(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::SelectBackground, Value, FollowUp::RenderBackground);
    }
    STDMETHODIMP get_SelectAnalogWaveform(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::SelectAnalogWaveform);
    }
    STDMETHODIMP put_SelectAnalogWaveform(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::SelectAnalogWaveform, Value, FollowUp::RebuildPens);
    }
    STDMETHODIMP get_Scales(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::Scales);
    }
    STDMETHODIMP put_Scales(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::Scales, Value, FollowUp::RebuildPens);
    }
    STDMETHODIMP get_PlayCursor(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::PlayCursor);
    }
    STDMETHODIMP put_PlayCursor(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::PlayCursor, Value, FollowUp::Redraw);
    }
    STDMETHODIMP get_Grid(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::Grid);
    }
    STDMETHODIMP put_Grid(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::Grid, Value, FollowUp::RebuildPens);
    }
    STDMETHODIMP get_DigitalWaveform(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::DigitalWaveform);
    }
    STDMETHODIMP put_DigitalWaveform(OLE_COLOR Value) override {
        settings_.Values.DarkSelectShade = view::Darker(Value, 40);
        settings_.Values.LightSelectShade = view::Darker(Value, 20);
        return Put(&view::ColorSettings::DigitalWaveform, Value, FollowUp::RebuildPens);
    }
    STDMETHODIMP get_Cursor(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::Cursor);
    }
    STDMETHODIMP put_Cursor(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::Cursor, Value, FollowUp::Redraw);
    }
    STDMETHODIMP get_CenterLine(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::CenterLine);
    }
    STDMETHODIMP put_CenterLine(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::CenterLine, Value, FollowUp::RebuildPens);
    }
    STDMETHODIMP get_Boundary(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::Boundary);
    }
    STDMETHODIMP put_Boundary(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::Boundary, Value, FollowUp::Redraw);
    }
    STDMETHODIMP get_Background(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::Background);
    }
    STDMETHODIMP put_Background(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::Background, Value, FollowUp::RebuildPens);
    }
    STDMETHODIMP get_AnalogWaveform(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::AnalogWaveform);
    }
    STDMETHODIMP put_AnalogWaveform(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::AnalogWaveform, Value, FollowUp::RebuildPens);
    }
    STDMETHODIMP get_CueMarker(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::CueMarker);
    }
    STDMETHODIMP put_CueMarker(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::CueMarker, Value, FollowUp::Redraw);
    }
    STDMETHODIMP get_RangeMarker(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::RangeMarker);
    }
    STDMETHODIMP put_RangeMarker(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::RangeMarker, Value, FollowUp::Redraw);
    }
    STDMETHODIMP get_RangeMarkerBackground(OLE_COLOR* Value) override {
        return Get(Value, &view::ColorSettings::RangeMarkerBackground);
    }
    STDMETHODIMP put_RangeMarkerBackground(OLE_COLOR Value) override {
        return Put(&view::ColorSettings::RangeMarkerBackground, Value, FollowUp::RenderBackground);
    }
    STDMETHODIMP get_SpectralLow(LONG* Value) override {
        return Get(Value, &view::ColorSettings::SpectralLow);
    }
    STDMETHODIMP put_SpectralLow(LONG Value) override {
        return Put(&view::ColorSettings::SpectralLow, Value, FollowUp::Redraw);
    }
    STDMETHODIMP get_SpectralHigh(LONG* Value) override {
        return Get(Value, &view::ColorSettings::SpectralHigh);
    }
    STDMETHODIMP put_SpectralHigh(LONG Value) override {
        return Put(&view::ColorSettings::SpectralHigh, Value, FollowUp::Redraw);
    }
    STDMETHODIMP get_SpectralSelectLow(LONG* Value) override {
        return Get(Value, &view::ColorSettings::SpectralSelectLow);
    }
    STDMETHODIMP put_SpectralSelectLow(LONG Value) override {
        return Put(&view::ColorSettings::SpectralSelectLow, Value, FollowUp::Redraw);
    }
    STDMETHODIMP get_SpectralSelectHigh(LONG* Value) override {
        return Get(Value, &view::ColorSettings::SpectralSelectHigh);
    }
    STDMETHODIMP put_SpectralSelectHigh(LONG Value) override {
        return Put(&view::ColorSettings::SpectralSelectHigh, Value, FollowUp::Redraw);
    }

private:
    // What a change asks of the picture; each does what the next ones do as well.
    enum class FollowUp { RebuildPens, RenderBackground, Redraw };

    class Settings final : public automation::InterfacePart<IColorSettings> {
    public:
        using InterfacePart::InterfacePart;
        const view::ColorSettings& STDMETHODCALLTYPE Get() override { return Values; }

        view::ColorSettings Values;
    };

    template <class Value, class Field>
    HRESULT Get(Value* target, Field view::ColorSettings::*field) const {
        if (!target) return E_POINTER;
        *target = static_cast<Value>(settings_.Values.*field);
        return S_OK;
    }
    template <class Value, class Field>
    HRESULT Put(Field view::ColorSettings::*field, Value value, FollowUp followUp) {
        settings_.Values.*field = static_cast<Field>(value);
        return Show(followUp);
    }
    HRESULT Show(FollowUp followUp);

    Settings settings_;
    Attachment<view::ViewOperations> view_;
};

}  // namespace mavrin2::objects
