#include "control/server/document_editor.h"

namespace mavrin2::server {
namespace {

view::ViewServices ViewServicesOf(const EditorSurroundings& around) {
    return {*around.Ports.Files,     *around.Ports.Fonts,   around.Ports.Colors,
            around.History,          around.State.Format,   around.State.Status,
            around.State.Settings,   around.State.Channels, around.State.Play,
            around.State.Operations, around.Events,         around.Style,
            around.Display};
}

}  // namespace

DocumentEditor::DocumentEditor(const EditorSurroundings& around)
    : picture_(ViewServicesOf(around)),
      range_(around.History, around.State.Format, picture_, around.Events),
      services_{*around.Ports.Files,
                around.Temporary,
                around.History,
                around.State.Format,
                around.State.Channels,
                around.State.Status,
                around.State.Settings,
                around.State.Operations,
                range_,
                picture_,
                picture_.Observer(),
                around.Events},
      Transport(around.State.Status),
      Opening(services_, around.Companion, Transport),
      Saver(services_, around.Companion),
      Edits(services_),
      Versions(services_),
      Positions(services_, Transport),
      View(picture_, services_),
      Zooming(picture_, services_),
      Channels{around.State.Channels, around.State.Format, View} {}

}  // namespace mavrin2::server
