#pragma once

#include "automation/com_ptr.h"
#include "control/interfaces/colors.h"
#include "control/interfaces/scale.h"
#include "control/view/style.h"

namespace mavrin2::server {

// The objects that the control takes its looks from: its own at first, later perhaps a host's. An
// object that is missing has the settings that a new one has.
class ViewStyle final : public view::Style {
public:
    automation::ComPtr<interfaces::IMavrin2Colors> ColorsObject;
    automation::ComPtr<interfaces::IMavrin2Scale> ScaleXObject;
    automation::ComPtr<interfaces::IMavrin2Scale> ScaleYObject;

    void Release();

    view::ColorSettings Colors() const override;
    view::ScaleSettings ScaleX() const override;
    view::ScaleSettings ScaleY() const override;
    platform::FontDescription ScaleXFont() const override;
    platform::FontDescription ScaleYFont() const override;
    void LimitScaleTypes() override;
};

}  // namespace mavrin2::server
