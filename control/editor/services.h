#pragma once

#include "control/editor/channel_switches.h"
#include "control/editor/document_format.h"
#include "control/editor/edit_settings.h"
#include "control/editor/markers/marker_bar.h"
#include "control/editor/operation.h"
#include "control/editor/ports.h"
#include "control/editor/temporary_files.h"
#include "control/editor/undo_history.h"
#include "control/editor/view_range.h"
#include "platform/block_memory.h"
#include "platform/files.h"

// What the operations on a document work with, in groups of references to parts that belong to the
// control and outlive every operation. A class takes the groups, or the single parts, that it uses.

namespace mavrin2::editor {

// The document that is open, if any.
struct Document {
    UndoHistory& History;
    DocumentFormat& Format;
    ChannelSwitches& Channels;
    UndoSteps& Steps;
};

// What is running, and whom it reports to.
struct Operation {
    OperationStatus& Status;
    OperationCounter& Counter;
    EditorEvents& Events;
};

// Where sound is kept: in work files, and a block of it in memory.
struct Storage {
    platform::FileSystem& Files;
    platform::BlockMemory& Memory;
    TemporaryFiles& Temporary;
    const EditSettings& Settings;
};

// Who has to know of a change.
struct Presentation {
    DocumentView& View;
    ViewRange& Range;
    BlockObserver& Observer;
    RateObserver& Rate;
    MarkerBar& Markers;
};

// The test that every changing operation begins with: a document is open and nothing is running.
inline bool Ready(const Document& document, const Operation& operation) {
    return document.History.Current() && operation.Status.Idle();
}

}  // namespace mavrin2::editor
