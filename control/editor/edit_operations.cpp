#include "control/editor/edit_operations.h"

#include "control/editor/range_edit.h"

namespace mavrin2::editor {

void EditOperations::DeleteSelect() {
    if (!Ready(document_, operation_) || !document_.History.Current()->Selected) return;
    operation_.Status.LastError = ErrorConstants::NOERRORS;
    RangeEdit edit(document_, operation_, storage_, presentation_, StatusConstants::DeleteSelect);
    if (!edit.BeginEdit(Bytes(0))) return;
    edit.Source().Seek(edit.SelectionEnd().Count());
    edit.CommitEdit();
}

}  // namespace mavrin2::editor
