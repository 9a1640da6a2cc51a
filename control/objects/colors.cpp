#include "control/objects/colors.h"

namespace mavrin2::objects {

CMavrin2Colors::CMavrin2Colors(IUnknown* outer, std::uint32_t buttonFace)
    : AutomationObject(outer), settings_(Identity()) {
    settings_.Values.Scales = buttonFace;
}

HRESULT CMavrin2Colors::Show(FollowUp followUp) {
    return view_.Do([&](view::ViewOperations& view) {
        switch (followUp) {
            case FollowUp::RebuildPens:
                view.RebuildPens();
                return;
            case FollowUp::RenderBackground:
                view.RenderBackground();
                view.Redraw();
                return;
            case FollowUp::Redraw:
                view.Redraw();
                return;
        }
    });
}

}  // namespace mavrin2::objects
