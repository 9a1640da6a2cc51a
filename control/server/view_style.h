#pragma once

#include "automation/com_ptr.h"
#include "control/interfaces/colors.h"
#include "control/interfaces/scale.h"
#include "control/view/style.h"

namespace mavrin2::server {

// The objects that hold the control's colours and scales: at first its own, later perhaps a host's.
// A missing object counts as a new one.
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
