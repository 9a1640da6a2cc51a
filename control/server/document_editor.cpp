#include "control/server/document_editor.h"

namespace mavrin2::server {
namespace {

view::ViewServices ViewServicesOf(const EditorDependencies& dependencies) {
    return {*dependencies.Ports.Files,     *dependencies.Ports.Fonts,   dependencies.Ports.Colors,
            dependencies.History,          dependencies.State.Format,   dependencies.State.Status,
            dependencies.State.Settings,   dependencies.State.Channels, dependencies.State.Play,
            dependencies.State.Operations, dependencies.Events,         dependencies.Style,
            dependencies.Display};
}

}  // namespace

DocumentEditor::DocumentEditor(const EditorDependencies& dependencies)
    : picture_(ViewServicesOf(dependencies)),
      range_(dependencies.History, dependencies.State.Format, picture_, dependencies.Events),
      services_{*dependencies.Ports.Files,
                dependencies.Temporary,
                dependencies.History,
                dependencies.State.Format,
                dependencies.State.Channels,
                dependencies.State.Status,
                dependencies.State.Settings,
                dependencies.State.Operations,
                range_,
                picture_,
                picture_.Observer(),
                dependencies.Events},
      Transport(dependencies.State.Status),
      Opening(services_, dependencies.Companion, Transport),
      Saver(services_, dependencies.Companion),
      Edits(services_),
      UndoRedo(services_),
      Positions(services_, Transport),
      View(picture_, services_),
      Zooming(picture_, services_),
      Channels{dependencies.State.Channels, dependencies.State.Format, View} {}

}  // namespace mavrin2::server
