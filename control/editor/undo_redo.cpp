#include "control/editor/undo_redo.h"

namespace mavrin2::editor {

void UndoRedo::Move(bool (UndoHistory::*step)()) {
    if (!Ready(document_, operation_)) return;
    OperationTicket ticket(operation_.Counter, document_.History);
    for (std::int32_t i = 0; i < document_.Steps.LastStepCount; ++i)
        if (!(document_.History.*step)()) return;
    ticket.Moved();

    const DocumentState& state = *document_.History.Current();
    DocumentFormat& format = document_.Format;
    if (state.Frequency != format.Frequency || state.Channels != format.Channels) {
        format.Frequency = state.Frequency;
        format.Channels = state.Channels;
        document_.Channels.Recount(state.Channels);
        presentation_.View.FormatChanged();
        if (!ticket.IsCurrent()) return;
    }
    document_.Steps.BatchMode = false;
    presentation_.View.BuildOverviewSummary();
    if (!ticket.IsCurrent()) return;
    if (!presentation_.Range.RecomputeView() || !ticket.IsCurrent()) return;
    presentation_.Markers.RebuildDisplayList();
    if (ticket.IsCurrent()) presentation_.View.Redraw();
}

void UndoRedo::BeginOperations() {
    document_.Steps.LastStepCount = 0;
    document_.Steps.BatchMode = true;
}

void UndoRedo::End(void (DocumentView::*summarise)()) {
    const auto ticket = OperationTicket::Observe(operation_.Counter, document_.History);
    document_.Steps.BatchMode = false;
    (presentation_.View.*summarise)();
    if (!ticket.IsCurrent()) return;
    presentation_.Range.RecomputeView();
    if (ticket.IsCurrent()) presentation_.View.Redraw();
    if (ticket.IsCurrent()) presentation_.Markers.RebuildDisplayList();
}

}  // namespace mavrin2::editor
