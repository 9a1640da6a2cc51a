#pragma once

#include "control/editor/block_observer.h"
#include "control/editor/channel_switches.h"
#include "control/editor/document_format.h"
#include "control/editor/document_view.h"
#include "control/editor/edit_settings.h"
#include "control/editor/editor_events.h"
#include "control/editor/operation_status.h"
#include "control/editor/operation_ticket.h"
#include "control/editor/temporary_files.h"
#include "control/editor/undo_history.h"
#include "control/editor/view_range.h"
#include "platform/files.h"

namespace mavrin2::editor {

// What the operations on a document work with: references to parts that belong to the control and
// outlive every operation.
struct EditorServices {
    platform::FileSystem& Files;
    TemporaryFiles& Temporary;
    UndoHistory& History;
    DocumentFormat& Format;
    ChannelSwitches& Channels;
    OperationStatus& Status;
    EditSettings& Settings;
    OperationCounter& Operations;
    ViewRange& Range;
    DocumentView& View;
    BlockObserver& Observer;
    EditorEvents& Events;

    // The test that every changing operation begins with: a document is open and nothing runs.
    bool Ready() const { return History.Current() && Status.Idle(); }
};

}  // namespace mavrin2::editor
