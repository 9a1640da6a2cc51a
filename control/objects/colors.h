#pragma once

#include "automation/object.h"
#include "control/editor/markers/marker_settings.h"
#include "control/interfaces/colors.h"
#include "control/objects/attachment.h"
#include "control/objects/private_interfaces.h"
#include "control/view/view_operations.h"
#include "platform/ports.h"

namespace mavrin2::objects {

// The colours that a host has chosen. A change is drawn at once.
class CMavrin2Colors final
    : public automation::AutomationObject<CMavrin2Colors, interfaces::IMavrin2Colors> {
public:
    // `buttonFace` is the system's colour, 0x00BBGGRR.
    CMavrin2Colors(IUnknown* outer, std::uint32_t buttonFace);
    CMavrin2Colors(IUnknown* outer, const platform::Ports& ports)
        : CMavrin2Colors(outer, ports.Colors.ButtonFace) {}
    ~CMavrin2Colors() = default;

    // What the colours are for.
    struct Parts {
        view::ViewOperations& View;
        editor::MarkerSettings& Markers;
    };
    void Attach(Parts& parts, IUnknown* control) { parts_.Attach(parts, control); }
    void Detach() { parts_.Detach(); }
    void* FindInterface(REFIID iid) {
        return IsEqualGUID(iid, IColorSettings::Id) ? static_cast<IColorSettings*>(&settings_)
                                                    : nullptr;
    }

#define DECLARE_COLOR(name, ...)                        \
    STDMETHODIMP get_##name(OLE_COLOR* Value) override; \
    STDMETHODIMP put_##name(OLE_COLOR Value) override;
#define DECLARE_HUE(name, ...)                     \
    STDMETHODIMP get_##name(LONG* Value) override; \
    STDMETHODIMP put_##name(LONG Value) override;
    MAVRIN2_COLORS(DECLARE_COLOR)
    MAVRIN2_HUES(DECLARE_HUE)
#undef DECLARE_COLOR
#undef DECLARE_HUE

private:
    // What a change does to the picture; each of them also does what the later ones do.
    enum class Change { RebuildPens, RenderBackground, Redraw };

    class Settings final : public automation::InterfacePart<IColorSettings> {
    public:
        using InterfacePart::InterfacePart;
        const view::ColorSettings& STDMETHODCALLTYPE Get() override { return Values; }

        view::ColorSettings Values;
    };

    HRESULT Show(Change change);

    Settings settings_;
    Attachment<Parts> parts_;
};

}  // namespace mavrin2::objects
