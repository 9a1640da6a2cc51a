#include "control/editor/edit_operations.h"

#include "control/editor/range_edit.h"

namespace mavrin2::editor {

void EditOperations::DeleteSelect() {
    if (!services_.Ready() || !services_.History.Current()->Selected) return;
    services_.Status.LastError = ErrorConstants::NOERRORS;
    RangeEdit edit(services_, StatusConstants::DeleteSelect);
    if (!edit.BeginEdit(Bytes(0))) return;
    edit.Source().Seek(edit.SelectionEnd().Count());
    edit.CommitEdit();
}

}  // namespace mavrin2::editor
