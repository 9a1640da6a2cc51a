#pragma once

#include "control/editor/document_format.h"
#include "control/editor/edit_settings.h"
#include "control/editor/markers/marker_display_list.h"
#include "control/editor/ports.h"
#include "control/editor/undo_history.h"

namespace mavrin2::editor {

// Shows the document's markers: keeps the display list in step and has the picture drawn.
class MarkerBar {
public:
    MarkerBar(const UndoHistory& history, const DocumentFormat& format, const UndoSteps& steps,
              MarkerDisplayList& list, DocumentView& view)
        : history_(history), format_(format), steps_(steps), list_(list), view_(view) {}

    // After every change of the list and of the current version. Nothing without a document or
    // inside a batch, whose end does it.
    void RebuildDisplayList() {
        const DocumentState* state = history_.Current();
        if (!state || steps_.BatchMode) return;
        if (list_.Rebuild(state->Markers, format_.FrameSize())) view_.MarkersChanged();
    }

    // When the document is closed: frees what is shown of it.
    void Release() { list_.Release(); }

    // Changes the current version's list and shows it.
    template <class Change>
    void ChangeShown(MarkerList& list, Change&& change) {
        if (!steps_.BatchMode) list_.Expect(list);
        change();
        RebuildDisplayList();
    }
    // Changes one marker of the list, by number, without showing it.
    template <class Change>
    void ChangeUnseen(const MarkerList& list, std::int32_t number, Change&& change) {
        list_.ChangeUnseen(list, number, change);
    }

private:
    const UndoHistory& history_;
    const DocumentFormat& format_;
    const UndoSteps& steps_;
    MarkerDisplayList& list_;
    DocumentView& view_;
};

}  // namespace mavrin2::editor
