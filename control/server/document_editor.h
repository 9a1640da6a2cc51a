#pragma once

#include "control/editor/document_opening.h"
#include "control/editor/document_saver.h"
#include "control/editor/edit_operations.h"
#include "control/editor/editor_services.h"
#include "control/editor/positions.h"
#include "control/editor/undo_redo.h"
#include "control/processing/transport.h"

namespace mavrin2::server {

// The plain state that the parts of one control share.
struct ControlState {
    editor::DocumentFormat Format;
    editor::OperationStatus Status;
    editor::EditSettings Settings;
    editor::OperationCounter Operations;
};

// The editor of one control, wired: everything that works on its document.
class DocumentEditor {
public:
    DocumentEditor(platform::FileSystem& files, editor::TemporaryFiles& temporary,
                   editor::UndoHistory& history, ControlState& state,
                   editor::SoundFileCompanion& companion, editor::EditorEvents& events);
    DocumentEditor(const DocumentEditor&) = delete;
    DocumentEditor& operator=(const DocumentEditor&) = delete;

private:
    editor::DocumentView view_;
    editor::BlockObserver observer_;
    editor::ViewRange range_;
    editor::EditorServices services_;

public:
    processing::Transport Transport;
    editor::DocumentOpening Opening;
    editor::DocumentSaver Saver;
    editor::EditOperations Edits;
    editor::UndoRedo Versions;
    editor::Positions Positions;
};

}  // namespace mavrin2::server
