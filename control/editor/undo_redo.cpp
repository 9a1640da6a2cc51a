#include "control/editor/undo_redo.h"

namespace mavrin2::editor {

void UndoRedo::Move(bool (UndoHistory::*step)()) {
    if (!services_.Ready()) return;
    OperationTicket ticket(services_.Operations, services_.History);
    for (std::int32_t i = 0; i < services_.Settings.LastStepCount; ++i)
        if (!(services_.History.*step)()) return;
    ticket.Moved();

    const DocumentState& state = *services_.History.Current();
    services_.Format.Frequency = state.Frequency;
    if (state.Channels != services_.Format.Channels) {
        services_.Format.Channels = state.Channels;
        services_.Channels.Recount(state.Channels);
        services_.View.RecomputeScales();
        services_.View.RenderBackground();
    }
    services_.Settings.BatchMode = false;
    services_.View.BuildOverviewSummary();
    if (!ticket.IsCurrent()) return;
    if (!services_.Range.RecomputeView() || !ticket.IsCurrent()) return;
    services_.View.Redraw();
}

void UndoRedo::BeginOperations() {
    services_.Settings.LastStepCount = 0;
    services_.Settings.BatchMode = true;
}

void UndoRedo::EndOperations() {
    const auto ticket = OperationTicket::Observe(services_.Operations, services_.History);
    services_.Settings.BatchMode = false;
    // An edit from inside which this is called goes on.
    const StatusConstants before = services_.Status.Status;
    services_.View.BuildOverviewSummary();
    if (!ticket.IsCurrent()) return;
    services_.Status.Status = before;
    services_.Range.RecomputeView();
    if (ticket.IsCurrent()) services_.View.Redraw();
}

}  // namespace mavrin2::editor
