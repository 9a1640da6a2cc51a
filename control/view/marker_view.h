#pragma once

#include <cstdint>

#include "control/editor/markers/marker_bar.h"
#include "control/editor/markers/marker_settings.h"
#include "control/view/document_picture.h"

namespace mavrin2::view {

// What hosts choose for the markers in the picture. A value that is the same as before changes
// nothing and draws nothing.
class MarkerView {
public:
    MarkerView(DocumentPicture& picture, editor::MarkerSettings& settings, editor::MarkerBar& bar)
        : picture_(picture), settings_(settings), bar_(bar) {}

    const editor::MarkerSettings& Settings() const { return settings_; }
    void SetBarEnabled(std::int16_t value);
    void SetBackgroundEnabled(std::int16_t value);
    void SetToolTipEnabled(std::int16_t value) { settings_.ToolTipEnabled = value; }
    void SetMouseEventEnabled(std::int16_t value) { settings_.MouseEventEnabled = value; }
    void SetBitmapType(std::int16_t value);

private:
    DocumentPicture& picture_;
    editor::MarkerSettings& settings_;
    editor::MarkerBar& bar_;
};

}  // namespace mavrin2::view
