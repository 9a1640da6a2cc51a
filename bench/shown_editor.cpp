#include "bench/shown_editor.h"

#include <stdexcept>

namespace mavrin2::bench {

ShownEditor::ShownEditor(int width, int height)
    : width_(width),
      height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
      target_({pixels_.data(), width, height, width}) {
    if (FAILED(Control().QueryInterface(IID_IViewObject, view_.PutVoid())))
        throw std::runtime_error("the control has no picture");
    Control().get_Colors(colors_.Put());
    Paint();
}

void ShownEditor::Paint() {
    const RECTL bounds{0, 0, width_, height_};
    if (FAILED(view_->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, &target_, &bounds,
                           nullptr, nullptr, 0)))
        throw std::runtime_error("the control was not drawn");
}

void ShownEditor::Redraw() {
    // Of all that a host can change, this asks for a redraw and nothing else.
    colors_->put_Cursor(0x00FFFF);
}

}  // namespace mavrin2::bench
