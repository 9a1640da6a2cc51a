#include "hosts/desktop/window/action_table.h"

#include "hosts/desktop/files/document_file.h"
#include "hosts/desktop/files/sound_clipboard.h"
#include "hosts/desktop/sound/navigation.h"

namespace mavrin2::desktop {
namespace {

using Target = const ActionTarget&;

template <const char* const& Method>
void CallEdit(Target target) {
    target.Sound.Edit([&] { target.Sound.Members().Call(Method); });
}

void Delete(Target target) {
    target.Sound.EditKeepingZoom([&] { target.Sound.Members().Call("DeleteSelect"); });
}

template <const char* const& Method>
void CallView(Target target) {
    target.Sound.Perform([&] { target.Sound.Members().Call(Method); });
}

constexpr qint32 kOnce = 1;
constexpr qint32 kToEnd = 2;
constexpr qint32 kLooped = 3;

template <qint32 Type>
void CallPlay(Target target) {
    target.Sound.Edit([&] { target.Sound.Members().Call("Play", Type); });
}

void Record(Target target) {
    constexpr qint32 kReplacing = 1;
    target.Sound.Edit([&] { target.Sound.Members().Call("Record", kReplacing); });
}

template <Place To>
void Go(Target target) {
    target.Sound.Perform([&] { target.Steps.Go(To); });
}

template <Place To>
void Extend(Target target) {
    target.Sound.Perform([&] { target.Steps.Extend(To); });
}

template <bool More>
void ShowMore(Target target) {
    target.Sound.Perform([&] { target.Steps.ShowTimes(More ? 2.0 : 0.5); });
}

template <bool More>
void ShowMoreLevel(Target target) {
    target.Sound.Perform([&] { target.Steps.ShowLevelTimes(More ? 1.25 : 0.8); });
}

template <qint32 Type>
void ShowAs(Target target) {
    target.Sound.Perform([&] { target.Sound.Members().Put("TypeView", Type); });
}

void SelectAll(Target target) {
    target.Sound.Perform([&] { target.Sound.Select(0, target.Sound.Position().Total); });
}

void SelectNothing(Target target) {
    target.Sound.Perform([&] { target.Sound.MoveTo(target.Sound.Position().Start); });
}

constexpr const char* kUndo = "Undo";
constexpr const char* kRedo = "Redo";
constexpr const char* kPause = "Pause";
constexpr const char* kContinue = "Continue";
constexpr const char* kStop = "Stop";
constexpr const char* kZoomIn = "ZoomIn";
constexpr const char* kZoomOut = "ZoomOut";
constexpr const char* kZoomFull = "ZoomFull";

constexpr const char* kFile = "&File";
constexpr const char* kEdit = "&Edit";
constexpr const char* kView = "&View";
constexpr const char* kGo = "&Go";
constexpr const char* kSound = "&Sound";

constexpr ActionRow kRows[] = {
    {kFile, "&New", "Ctrl+N", "New", Needs::Nothing, [](Target t) { t.File.New(); }},
    {kFile, "&Open...", "Ctrl+O", "Open", Needs::Nothing, [](Target t) { t.File.Open(); }},
    {kFile, "&Save", "Ctrl+S", "Save", Needs::Sound, [](Target t) { t.File.Save(); }},
    {kFile, "Save &As...", "Ctrl+Shift+S", "Save", Needs::Sound, [](Target t) { t.File.SaveAs(); }},
    {kFile, "Save Se&lection As...", "Ctrl+Alt+S", "Save", Needs::Selection,
     [](Target t) { t.File.SaveSelectionAs(); }},

    {kEdit, "&Undo", "Ctrl+Z", kUndo, Needs::Undo, &CallEdit<kUndo>},
    {kEdit, "&Redo", "Ctrl+Shift+Z Ctrl+Y", kRedo, Needs::Redo, &CallEdit<kRedo>},
    {kEdit, nullptr, "", "", Needs::Nothing, nullptr},
    {kEdit, "Cu&t", "Ctrl+X", "Cut", Needs::Selection, [](Target t) { t.Clipboard.Cut(); }},
    {kEdit, "&Copy", "Ctrl+C", "Copy", Needs::Selection, [](Target t) { t.Clipboard.Copy(); }},
    {kEdit, "&Paste", "Ctrl+V", "Paste", Needs::Clip, [](Target t) { t.Clipboard.Paste(); }},
    {kEdit, "&Delete", "Del", "DeleteSelect", Needs::Selection, &Delete},
    {kEdit, nullptr, "", "", Needs::Nothing, nullptr},
    {kEdit, "Select &All", "Ctrl+A", "Position.EndSelect", Needs::Sound, &SelectAll},
    {kEdit, "Select &Nothing", "Ctrl+Shift+A", "Position.StartSelect", Needs::Sound,
     &SelectNothing},

    {kView, "&Closer", "+ =", "Position.StartView", Needs::Sound, &ShowMore<false>},
    {kView, "&Wider", "-", "Position.StartView", Needs::Sound, &ShowMore<true>},
    {kView, "&Selection", "Ctrl+E", kZoomIn, Needs::Selection, &CallView<kZoomIn>},
    {kView, "&Previous Zoom", "Backspace", kZoomOut, Needs::Sound, &CallView<kZoomOut>},
    {kView, "Whole S&ound", "Ctrl+0", kZoomFull, Needs::Sound, &CallView<kZoomFull>},
    {kView, nullptr, "", "", Needs::Nothing, nullptr},
    {kView, "&Taller", "Ctrl+Up", "ZoomVertical", Needs::Nothing, &ShowMoreLevel<false>},
    {kView, "&Flatter", "Ctrl+Down", "ZoomVertical", Needs::Nothing, &ShowMoreLevel<true>},
    {kView, nullptr, "", "", Needs::Nothing, nullptr},
    {kView, "Wave&form", "Ctrl+1", "TypeView", Needs::Nothing, &ShowAs<0>},
    {kView, "Sp&ectrum", "Ctrl+2", "TypeView", Needs::Nothing, &ShowAs<1>},
    {kView, "E&xpanded", "Ctrl+3", "TypeView", Needs::Nothing, &ShowAs<2>},

    {kSound, "&Play", "Space", "Play", Needs::Sound, &CallPlay<kOnce>},
    {kSound, "Play to the &End", "Shift+Space", "Play", Needs::Sound, &CallPlay<kToEnd>},
    {kSound, "Play in a &Loop", "Ctrl+L", "Play", Needs::Sound, &CallPlay<kLooped>},
    {kSound, "P&ause", "F8", kPause, Needs::Sound, &CallView<kPause>},
    {kSound, "&Continue", "Shift+F8", kContinue, Needs::Sound, &CallView<kContinue>},
    {kSound, "&Stop", "Esc", kStop, Needs::Nothing, &CallView<kStop>},
    {kSound, nullptr, "", "", Needs::Nothing, nullptr},
    {kSound, "&Record", "Ctrl+R", "Record", Needs::Sound, &Record},

    {kGo, "&Back", "Left", "Position.StartSelect", Needs::Sound, &Go<Place::Back>},
    {kGo, "&Forward", "Right", "Position.StartSelect", Needs::Sound, &Go<Place::Forward>},
    {kGo, "Page B&ack", "PgUp", "Position.StartSelect", Needs::Sound, &Go<Place::PageBack>},
    {kGo, "Page F&orward", "PgDown", "Position.StartSelect", Needs::Sound, &Go<Place::PageForward>},
    {kGo, "B&eginning", "Home", "Position.StartSelect", Needs::Sound, &Go<Place::Begin>},
    {kGo, "E&nd", "End", "Position.StartSelect", Needs::Sound, &Go<Place::End>},
    {kGo, nullptr, "", "", Needs::Nothing, nullptr},
    {kGo, "Extend Back", "Shift+Left", "Position.EndSelect", Needs::Sound, &Extend<Place::Back>},
    {kGo, "Extend Forward", "Shift+Right", "Position.EndSelect", Needs::Sound,
     &Extend<Place::Forward>},
    {kGo, "Extend a Page Back", "Shift+PgUp", "Position.EndSelect", Needs::Sound,
     &Extend<Place::PageBack>},
    {kGo, "Extend a Page Forward", "Shift+PgDown", "Position.EndSelect", Needs::Sound,
     &Extend<Place::PageForward>},
    {kGo, "Extend to the Beginning", "Shift+Home", "Position.EndSelect", Needs::Sound,
     &Extend<Place::Begin>},
    {kGo, "Extend to the End", "Shift+End", "Position.EndSelect", Needs::Sound,
     &Extend<Place::End>}};

}  // namespace

std::span<const ActionRow> ActionTable() {
    return kRows;
}

}  // namespace mavrin2::desktop
