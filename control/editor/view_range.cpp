#include "control/editor/view_range.h"

#include <algorithm>

namespace mavrin2::editor {
namespace {

Bytes RoundedToEven(Bytes position) {
    return Bytes(position.Count() / 2 * 2);
}

}  // namespace

bool ViewRange::RecomputeView(Bytes start, Bytes end) {
    DocumentState* state = history_.Current();
    if (!state) return true;
    start = RoundedToEven(start);
    end = RoundedToEven(end);
    if (end <= start) end = start + format_.FrameSize();
    state->Level().StartView = start;
    state->Level().EndView = std::max(end, Bytes(0));
    switch (view_.RecomputeColumns()) {
        case DocumentView::Columns::Failed:
            return false;
        case DocumentView::Columns::Nothing:
            return true;
        case DocumentView::Columns::Recomputed:
            break;
    }
    UpdateSelectionColumns();
    return true;
}

bool ViewRange::RecomputeView() {
    const DocumentState* state = history_.Current();
    return !state || RecomputeView(state->Level().StartView, state->Level().EndView);
}

void ViewRange::UpdateSelectionColumns() {
    if (!history_.Current()) return;
    view_.UpdateSelectionColumns();
    events_.ChangePosition();
}

}  // namespace mavrin2::editor
