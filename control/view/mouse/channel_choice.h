#pragma once

#include "control/editor/services.h"
#include "control/view/document_picture.h"
#include "control/view/mouse/zones.h"

namespace mavrin2::view {

// Chooses with the mouse which channel of two is edited: one of them at the upper or the lower edge
// of the wave area, and both again in the half of the other one.
class ChannelChoice {
public:
    ChannelChoice(const editor::Document& document, DocumentPicture& picture)
        : document_(document), picture_(picture) {}

    // A button was pressed in the lanes.
    void ChooseByPress(const MouseZones& zones, Point at);
    void ChooseWhileSelecting(const MouseZones& zones, Point at);

private:
    void Choose(const MouseZones& zones, Point at, bool byEighths);

    editor::Document document_;
    DocumentPicture& picture_;
};

}  // namespace mavrin2::view
