#pragma once

#include "control/editor/editor_services.h"

namespace mavrin2::editor {

// Moves along the versions of the document, a batch of changes at a time, and shows what it finds.
class UndoRedo {
public:
    explicit UndoRedo(EditorServices& services) : services_(services) {}

    // Nothing happens while the control is busy or without a document.
    void Undo() { Move(&UndoHistory::StepBack); }
    void Redo() { Move(&UndoHistory::StepForward); }

    // From here to EndOperations changes are counted as one step and not drawn.
    void BeginOperations();
    void EndOperations();

private:
    void Move(bool (UndoHistory::*step)());

    EditorServices& services_;
};

}  // namespace mavrin2::editor
