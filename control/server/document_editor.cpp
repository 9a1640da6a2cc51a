#include "control/server/document_editor.h"

#include <algorithm>

namespace mavrin2::server {

DocumentEditor::DocumentEditor(const EditorDependencies& dependencies)
    : document_{dependencies.History, dependencies.State.Format, dependencies.State.Channels,
                dependencies.State.Steps},
      operation_{dependencies.State.Status, dependencies.State.Operations, dependencies.Events},
      storage_{*dependencies.Ports.Files, *dependencies.Ports.Memory, dependencies.Temporary,
               dependencies.State.Settings},
      picture_({*dependencies.Ports.Files, *dependencies.Ports.Fonts, dependencies.Ports.Colors,
                document_, operation_, dependencies.State.Picture, dependencies.State.Selection,
                dependencies.State.Drag, dependencies.State.Play, dependencies.State.Recording,
                dependencies.State.MarkerSettings, dependencies.State.MarkerDisplay,
                dependencies.Style, dependencies.Display}),
      range_(document_.History, document_.Format, picture_, operation_.Events),
      markerBar_(document_.History, document_.Format, document_.Steps,
                 dependencies.State.MarkerDisplay, picture_),
      presentation_{picture_, range_, picture_.Observer(), dependencies.Transforms, markerBar_},
      Playback({document_, operation_, storage_.Files, picture_, range_, picture_,
                dependencies.TransportEvents, dependencies.Player, dependencies.State.Play,
                dependencies.State.Drag, dependencies.State.Settings, dependencies.State.Speed,
                dependencies.Output}),
      Recording({document_, operation_, storage_, presentation_, picture_,
                 dependencies.TransportEvents, dependencies.Recorder, dependencies.State.Recording,
                 dependencies.Input, *dependencies.Ports.Time}),
      Transport(operation_.Status, Playback, Recording, dependencies.Transforms),
      UndoRedo(document_, operation_, presentation_),
      Markers(document_.History, dependencies.State.MarkerSettings, markerBar_),
      markerFiles_(document_, dependencies.Extra, Markers, UndoRedo),
      Opening(document_, operation_, storage_, presentation_, dependencies.Companion,
              dependencies.Grabber, markerFiles_, Transport),
      Saver(document_, operation_, storage_.Files, picture_, dependencies.Companion, markerFiles_),
      Edits(document_, operation_, storage_, presentation_, dependencies.NewCompanion),
      Clipboard(document_, operation_, storage_, Edits, *dependencies.Ports.Clipboard,
                *dependencies.Ports.Errors),
      Arrays(document_, operation_, storage_, presentation_, Transport),
      Conversion(document_, operation_, storage_, presentation_, dependencies.Companion),
      Positions(document_, operation_.Status, presentation_, Transport),
      View(picture_, operation_.Status, range_, storage_.Files),
      MarkerView(picture_, dependencies.State.MarkerSettings, markerBar_),
      Zooming(picture_, document_, operation_, range_),
      Mouse({{document_, operation_, range_, picture_, dependencies.State.Selection,
              dependencies.State.Drag, dependencies.MouseEvents},
             {Markers, dependencies.State.MarkerDisplay, Positions,
              dependencies.State.MarkerSettings},
             dependencies.Style,
             dependencies.Display,
             Zooming,
             Transport,
             Playback,
             dependencies.State.Play,
             dependencies.State.Mouse,
             storage_.Files}),
      Channels{document_.Channels, document_.Format, View},
      Colors{View, dependencies.State.MarkerSettings},
      Pipeline(document_, operation_, storage_, presentation_, dependencies.Transforms),
      Transforms{Pipeline, dependencies.Transforms, dependencies.State.Settings} {}

void DocumentEditor::ShowProgress(int percent) {
    picture_.ShowProgress(std::clamp(percent, 0, 100));
    picture_.Redraw();
}

}  // namespace mavrin2::server
