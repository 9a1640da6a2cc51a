#include "control/editor/edit_operations.h"

#include "control/editor/range_edit.h"

namespace mavrin2::editor {

void EditOperations::DeleteSelect() {
    if (!Ready(document_, operation_) || !document_.History.Current()->Selected) return;
    operation_.Status.LastError = ErrorConstants::NOERRORS;
    const ZoomLevel level = document_.History.Current()->Level();
    RangeEdit edit(document_, operation_, storage_, presentation_, StatusConstants::DeleteSelect,
                   {level.StartSelect, level.EndSelect}, Bytes(0));
    if (edit.BeginEdit()) edit.CommitEdit();
}

}  // namespace mavrin2::editor
