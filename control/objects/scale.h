#pragma once

#include "automation/object.h"
#include "control/interfaces/scale.h"
#include "control/objects/attachment.h"
#include "control/objects/private_interfaces.h"
#include "control/view/style.h"
#include "control/view/view_operations.h"

namespace mavrin2::objects {

// How a host wants a scale. A change is laid out and drawn at once.
class CMavrin2Scale final
    : public automation::AutomationObject<CMavrin2Scale, interfaces::IMavrin2Scale> {
public:
    explicit CMavrin2Scale(IUnknown* outer) : AutomationObject(outer), settings_(Identity()) {}
    ~CMavrin2Scale() = default;

    // Makes the font.
    HRESULT FinalConstruct();
    void Attach(view::ViewOperations& view, IUnknown* control) { view_.Attach(view, control); }
    void Detach() { view_.Detach(); }
    void* FindInterface(REFIID iid) {
        return IsEqualGUID(iid, IScaleSettings::Id) ? static_cast<IScaleSettings*>(&settings_)
                                                    : nullptr;
    }

    STDMETHODIMP get_Font(IDispatch** Value) override;
    STDMETHODIMP put_Font(IDispatch* Value) override;
    STDMETHODIMP putref_Font(IDispatch* Value) override { return put_Font(Value); }
    STDMETHODIMP get_Type(SHORT* Value) override { return Get(Value, &view::ScaleSettings::Type); }
    STDMETHODIMP put_Type(SHORT Value) override { return Put(&view::ScaleSettings::Type, Value); }
    STDMETHODIMP get_Visible(SHORT* Value) override {
        return Get(Value, &view::ScaleSettings::Visible);
    }
    STDMETHODIMP put_Visible(SHORT Value) override {
        return Put(&view::ScaleSettings::Visible, Value);
    }
    STDMETHODIMP get_Grid(SHORT* Value) override { return Get(Value, &view::ScaleSettings::Grid); }
    STDMETHODIMP put_Grid(SHORT Value) override { return Put(&view::ScaleSettings::Grid, Value); }
    STDMETHODIMP get_Orientation(SHORT* Value) override {
        return Get(Value, &view::ScaleSettings::Orientation);
    }
    STDMETHODIMP put_Orientation(SHORT Value) override;

private:
    class Settings final : public automation::InterfacePart<IScaleSettings> {
    public:
        using InterfacePart::InterfacePart;
        view::ScaleSettings& STDMETHODCALLTYPE Get() override { return Values; }

        view::ScaleSettings Values;
    };

    HRESULT Get(SHORT* target, std::int16_t view::ScaleSettings::*field) const;
    HRESULT Put(std::int16_t view::ScaleSettings::*field, SHORT value);
    HRESULT Apply();

    Settings settings_;
    automation::ComPtr<IDispatch> font_;
    Attachment<view::ViewOperations> view_;
};

}  // namespace mavrin2::objects
