#include "control/server/document_editor.h"

namespace mavrin2::server {

DocumentEditor::DocumentEditor(platform::FileSystem& files, editor::TemporaryFiles& temporary,
                               editor::UndoHistory& history, ControlState& state,
                               editor::SoundFileCompanion& companion, editor::EditorEvents& events)
    : range_(history, state.Format, view_, events),
      services_{files,          temporary,        history, state.Format, state.Status,
                state.Settings, state.Operations, range_,  view_,        observer_,
                events},
      Transport(state.Status),
      Opening(services_, companion, Transport),
      Saver(services_, companion),
      Edits(services_),
      Versions(services_),
      Positions(services_, Transport) {}

}  // namespace mavrin2::server
