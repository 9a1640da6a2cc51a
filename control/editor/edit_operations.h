#pragma once

#include "control/editor/services.h"

namespace mavrin2::editor {

// The edits of the selection. Each does nothing unless a document is open, the control idle and,
// where the edit needs one, something selected; otherwise it clears the last error first.
class EditOperations {
public:
    EditOperations(const Document& document, const Operation& operation, const Storage& storage,
                   const Presentation& presentation)
        : document_(document),
          operation_(operation),
          storage_(storage),
          presentation_(presentation) {}

    void DeleteSelect();

private:
    Document document_;
    Operation operation_;
    Storage storage_;
    Presentation presentation_;
};

}  // namespace mavrin2::editor
