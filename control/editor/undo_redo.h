#pragma once

#include "control/editor/services.h"

namespace mavrin2::editor {

// Moves along the versions of the document, a batch of changes at a time, and shows what it finds.
class UndoRedo {
public:
    UndoRedo(const Document& document, const Operation& operation, const Presentation& presentation)
        : document_(document), operation_(operation), presentation_(presentation) {}

    // Nothing happens while the control is busy or without a document.
    void Undo() { Move(&UndoHistory::StepBack); }
    void Redo() { Move(&UndoHistory::StepForward); }

    // From here to EndOperations changes are counted as one step and not drawn.
    void BeginOperations();
    void EndOperations() { End(&DocumentView::BuildOverviewSummary); }
    // Ends a batch that has not changed the sound, which is not read again.
    void EndOperationsOnSameSound() { End(&DocumentView::ReportOverviewSummary); }

private:
    void Move(bool (UndoHistory::*step)());
    void End(void (DocumentView::*summarise)());

    Document document_;
    Operation operation_;
    Presentation presentation_;
};

}  // namespace mavrin2::editor
