#pragma once

#include "control/editor/editor_services.h"

namespace mavrin2::editor {

// The edits of the selection. Each does nothing unless a document is open, the control idle and,
// where the edit needs one, something selected; otherwise it clears the last error first.
class EditOperations {
public:
    explicit EditOperations(EditorServices& services) : services_(services) {}

    void DeleteSelect();

private:
    EditorServices& services_;
};

}  // namespace mavrin2::editor
