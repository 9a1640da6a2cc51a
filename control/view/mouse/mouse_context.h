#pragma once

#include <algorithm>

#include "control/editor/services.h"
#include "control/editor/view_state.h"
#include "control/view/document_picture.h"
#include "control/view/mouse/mouse_events.h"
#include "control/view/mouse/zones.h"

namespace mavrin2::view {

// What gestures work on: references to parts that belong to the control and outlive them.
struct MouseContext {
    editor::Document Document;
    editor::Operation Operation;
    editor::ViewRange& Range;
    DocumentPicture& Picture;
    editor::SelectionColumns& Selection;
    editor::DragState& Drag;
    MouseEvents& Events;

    const Geometry& Area() const { return Picture.Placement().Area(); }

    // The open document, if it has sound.
    editor::DocumentState* Sound() const {
        editor::DocumentState* state = Document.History.Current();
        return state && state->TotalBytes != Bytes(0) ? state : nullptr;
    }

    // The methods below need a document.

    // At the level of zooming that is shown.
    ColumnMapping Columns() const {
        const editor::ZoomLevel level = Document.History.Current()->Level();
        return {level.StartView, level.EndView, Area().WaveWidth, Document.Format.FrameSize()};
    }
    // The columns are spread over one frame more than there is: the document's end is the limit.
    Bytes ByteAt(std::int32_t column) const {
        return std::min(Columns().ColumnToByte(column), Document.History.Current()->TotalBytes);
    }
    // The nearest column of the wave area.
    std::int32_t ColumnAt(Point at) const {
        return std::clamp(at.X - Area().WaveArea.Left, 0, Area().WaveWidth);
    }
    bool InView(Bytes position) const {
        const editor::ZoomLevel level = Document.History.Current()->Level();
        return position >= level.StartView && position <= level.EndView;
    }
    // The mouse has moved the selection.
    void ShowSelection() {
        Picture.RenderBackground();
        Picture.Redraw();
        Operation.Events.ChangePosition();
    }
};

}  // namespace mavrin2::view
