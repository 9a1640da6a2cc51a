#pragma once

#include "automation/object.h"
#include "control/editor/channel_switches.h"
#include "control/editor/document_format.h"
#include "control/interfaces/channel.h"
#include "control/objects/attachment.h"
#include "control/view/view_operations.h"

namespace mavrin2::objects {

// The channels' switches as a host sets them.
class CMavrin2Channel final
    : public automation::AutomationObject<CMavrin2Channel, interfaces::IMavrin2Channel> {
public:
    // The parts of a control that the switches are of.
    struct Parts {
        editor::ChannelSwitches& Switches;
        const editor::DocumentFormat& Format;
        view::ViewOperations& View;
    };

    explicit CMavrin2Channel(IUnknown* outer) : AutomationObject(outer) {}
    ~CMavrin2Channel() = default;

    void Attach(Parts& parts, IUnknown* control) { parts_.Attach(parts, control); }
    void Detach() { parts_.Detach(); }

    STDMETHODIMP get_Count(SHORT* Value) override;
    STDMETHODIMP get_Num(SHORT* Value) override;
    STDMETHODIMP put_Num(SHORT Value) override;
    STDMETHODIMP get_Visible(SHORT* Value) override;
    STDMETHODIMP put_Visible(SHORT Value) override;
    STDMETHODIMP get_Operation(SHORT* Value) override;
    STDMETHODIMP put_Operation(SHORT Value) override;

private:
    using Flags = std::array<std::int16_t, editor::ChannelSwitches::Most>;

    HRESULT ReadFlag(SHORT* target, Flags editor::ChannelSwitches::*flags) const;

    Attachment<Parts> parts_;
};

}  // namespace mavrin2::objects
