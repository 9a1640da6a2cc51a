#pragma once

#include "control/editor/document_format.h"
#include "control/editor/ports.h"
#include "control/editor/undo_history.h"

namespace mavrin2::editor {

// The visible range of the document: keeps its ends aligned and lets view and host know of changes.
class ViewRange {
public:
    ViewRange(UndoHistory& history, const DocumentFormat& format, DocumentView& view,
              EditorEvents& events)
        : history_(history), format_(format), view_(view), events_(events) {}

    // Stores the range at the current zoom level, rounded down to even bytes and at least one frame
    // long, and has the picture's data made anew. False when that failed; the range is stored even
    // so. Raises ChangePosition when there is a picture.
    bool RecomputeView(Bytes start, Bytes end);
    // The same for the range that is stored.
    bool RecomputeView();

    // Has the selection shown; raises ChangePosition. Nothing without a document.
    void UpdateSelectionColumns();

private:
    UndoHistory& history_;
    const DocumentFormat& format_;
    DocumentView& view_;
    EditorEvents& events_;
};

}  // namespace mavrin2::editor
