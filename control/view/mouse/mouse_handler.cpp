#include "control/view/mouse/mouse_handler.h"

#include <algorithm>
#include <utility>

#include "control/view/mouse/own_pointers.h"
#include "control/view/mouse/scrolling_gestures.h"
#include "control/view/mouse/selection_gestures.h"

namespace mavrin2::view {

using editor::DragMode;
using editor::StatusConstants;
using platform::MouseAction;
using platform::MouseButton;

namespace {

constexpr int kLeft = static_cast<int>(MouseButton::Left);
constexpr int kRight = static_cast<int>(MouseButton::Right);

}  // namespace

MouseHandler::MouseHandler(const MouseHandlerServices& services)
    : Pointers(services.Screen, services.Files),
      services_(services),
      context_(services_.Context),
      channels_(context_.Document, context_.Picture),
      markers_(context_, services.Markers, services.Screen) {}

void MouseHandler::Handle(const platform::MouseEvent& event) {
    last_ = event;
    const Point at{event.X, event.Y};
    const auto x = static_cast<std::int16_t>(event.X);
    const auto y = static_cast<std::int16_t>(event.Y);
    const bool left = event.Button == MouseButton::Left;
    switch (event.Action) {
        case MouseAction::Move:
            Move(at, event.Held);
            context_.Events.MouseMove(event.Held, event.Modifiers, x, y);
            break;
        case MouseAction::Down:
            left ? LeftDown(at) : RightDown(at);
            context_.Events.MouseDown(left ? kLeft : kRight, event.Modifiers, x, y);
            break;
        case MouseAction::Up:
            left ? LeftUp(at) : RightUp(at);
            context_.Events.MouseUp(left ? kLeft : kRight, event.Modifiers, x, y);
            break;
        case MouseAction::DoubleClick:
            left ? LeftDoubleClick(at) : RightDoubleClick(at);
            break;
        case MouseAction::Wheel:
            Wheel(event.Turn);
            break;
    }
}

void MouseHandler::CaptureLost() {
    platform::MouseEvent release = last_;
    release.Action = MouseAction::Up;
    release.Button = MouseButton::Left;
    Handle(release);
}

MouseZones MouseHandler::Zones() const {
    // First what may run a host's code.
    const ScaleSettings scaleX = services_.HostStyle.ScaleX();
    const ScaleSettings scaleY = services_.HostStyle.ScaleY();
    ZoneInput input;
    input.TimeScaleShown = scaleX.Visible != 0;
    input.LevelScaleShown = scaleY.Visible != 0;
    input.LevelScaleLeft = scaleY.Orientation == 2;
    input.Thumb = context_.Picture.Placement().Thumb();
    const editor::DocumentState* document = context_.Document.History.Current();
    if (document && document->ZoomIndex > 0) {
        const editor::ZoomLevel level = document->Level();
        input.ScrollsByThumb = level.EndView - level.StartView < document->TotalBytes;
        input.ScrollsByTime = input.TimeScaleShown;
    }
    return {context_.Area(), input};
}

bool MouseHandler::Busy() const {
    switch (context_.Operation.Status.Status()) {
        case StatusConstants::Idle:
        case StatusConstants::Playing:
        case StatusConstants::Paused:
        case StatusConstants::Recording:
            return false;
        default:
            return true;
    }
}

void MouseHandler::LeftDown(Point at) {
    if (!Edits()) return;
    const MouseZones zones = Zones();
    if (!Editable() || !zones.InColumns(at) || !zones.InHeight(at)) return;
    EndGesture();
    context_.Drag.Mode = DragMode::None;
    services_.Screen.CaptureMouse(true);
    if (const auto gesture = GestureAt(zones, at)) Begin(gesture);
    ShowPointer(zones, at);
}

std::shared_ptr<Gesture> MouseHandler::GestureAt(const MouseZones& zones, Point at) {
    if (zones.InThumb(at)) return std::make_shared<Scrolling>(context_, Scrolling::With::Thumb, at);
    if (zones.InTimeScale(at))
        return std::make_shared<Scrolling>(context_, Scrolling::With::TimeScale, at);
    if (zones.InEdges(at)) {
        if (auto gesture = SelectionEdge::TakenAt(context_, at)) return gesture;
        return markers_.TakenAt(at);
    }
    return zones.InLanes(at) ? BeginSelecting(zones, at) : nullptr;
}

std::shared_ptr<Gesture> MouseHandler::BeginSelecting(const MouseZones& zones, Point at) {
    channels_.ChooseByPress(zones, at);
    if (context_.Operation.Status.Status() == StatusConstants::Paused) services_.Activity.Stop();
    // Stopping may run a host's code.
    return Editable() ? std::make_shared<Selecting>(context_, channels_, at) : nullptr;
}

void MouseHandler::Begin(const std::shared_ptr<Gesture>& gesture) {
    gesture_ = gesture;
    context_.Drag.Mode = gesture->Mode();
    // What plays goes on from the place pressed.
    if (gesture->Mode() == DragMode::Selecting && services_.Player.Playing())
        services_.Player.Restart([&] { gesture->Show(); });
    else
        gesture->Show();
}

// What was under way is over; null when nothing was.
std::shared_ptr<Gesture> MouseHandler::EndGesture() {
    auto gesture = std::exchange(gesture_, nullptr);
    if (gesture) gesture->End();
    return gesture;
}

void MouseHandler::Move(Point at, int held) {
    if (!Edits()) {
        Pointers.Show(Pointers.Chosen());
        return;
    }
    const MouseZones zones = Zones();
    // The visible range was changed by something else.
    if (context_.Drag.Mode == DragMode::None) EndGesture();
    if (!gesture_) {
        ShowPointer(zones, at);
        if (context_.Sound() && zones.InColumns(at) && zones.InEdges(at)) markers_.ShowTip(at);
        return;
    }
    if ((held & kLeft) == 0 || !Editable()) return;
    const auto gesture = gesture_;
    gesture->Move(at, zones);
    if (!gesture->Over() && gesture->Mode() == DragMode::Selecting) ShowPointer(zones, at);
}

void MouseHandler::LeftUp(Point at) {
    services_.Screen.CaptureMouse(false);
    const bool dragged = context_.Drag.Mode != DragMode::None;
    const auto gesture = EndGesture();
    if (Edits()) {
        ShowPointer(Zones(), at);
        const bool ended = gesture && dragged;
        if (!ended || !gesture->IsClick()) StopPastSelection();
        if (ended && Editable()) gesture->Release();
    }
    // A handler may have begun another one.
    if (!gesture_) context_.Drag.Mode = DragMode::None;
}

// A selection that was made smaller ends what plays it where playing is past its end.
void MouseHandler::StopPastSelection() {
    const editor::DocumentState* document = Editable();
    if (document && services_.Player.Active() &&
        services_.Play.PlayMode == interfaces::PlayTypeConstants::NORMALPLAY &&
        document->Level().EndSelect <= document->PlayPosition)
        services_.Activity.Stop();
}

void MouseHandler::LeftDoubleClick(Point at) {
    if (!Edits()) {
        context_.Events.DblClick();
        return;
    }
    const MouseZones zones = Zones();
    if (!context_.Sound() || !zones.InColumns(at)) return;
    ShowPointer(zones, at);
    if (zones.InLanes(at))
        context_.Events.DblClick();
    else if (zones.InEdges(at) && Editable())
        markers_.DoubleClick(at);
}

void MouseHandler::RightDown(Point at) {
    if (!Edits()) return;
    const MouseZones zones = Zones();
    if (zones.ClicksTimeScale(at)) context_.Events.ScaleXClick();
    if (zones.ClicksLevelScale(at)) context_.Events.ScaleYClick();
    if (!Editable() || !zones.InColumns(at)) return;
    ShowPointer(zones, at);
    if (zones.InLanes(at)) {
        channels_.ChooseByPress(zones, at);
        ExtendSelection(at);
    } else if (zones.InEdges(at)) {
        markers_.Click(at);
    }
}

void MouseHandler::ExtendSelection(Point at) {
    editor::DocumentState& document = *context_.Document.History.Current();
    editor::ZoomLevel& level = document.Level();
    const Bytes position = context_.ByteAt(context_.ColumnAt(at));
    level.StartSelect = std::min(level.StartSelect, position);
    level.EndSelect = std::max(level.EndSelect, position);
    document.Selected = 1;
    context_.Range.UpdateSelectionColumns();
    context_.Picture.Redraw();
}

void MouseHandler::RightUp(Point at) {
    if (Edits()) ShowPointer(Zones(), at);
}

void MouseHandler::RightDoubleClick(Point at) {
    if (!Edits() || !context_.Document.History.Current()) return;
    const MouseZones zones = Zones();
    ShowPointer(zones, at);
    if (zones.InLanes(at)) context_.Events.DblClick();
}

void MouseHandler::Wheel(int turn) {
    const editor::DocumentState* document = context_.Sound();
    if (!Edits() || !document || !context_.Operation.Status.Idle() || turn == 0) return;
    if (turn < 0) {
        services_.Zooming.ZoomOut();
        return;
    }
    // A quarter of what is shown, around the cursor.
    const editor::ZoomLevel level = document->Level();
    const std::int64_t frame = context_.Document.Format.FrameSize().Count();
    const std::int64_t half = (level.EndView - level.StartView).Count() / 8;
    if (half < frame) return;
    std::int64_t middle = std::max(level.StartSelect.Count(), half);
    middle = std::min(middle, document->TotalBytes.Count() - half);
    services_.Zooming.ZoomTo(static_cast<std::int32_t>((middle - half) / frame),
                             static_cast<std::int32_t>((middle + half) / frame));
}

void MouseHandler::ShowPointer(const MouseZones& zones, Point at) {
    Pointers.Show(PointerAt(zones, at));
}

const platform::Pointer& MouseHandler::PointerAt(const MouseZones& zones, Point at) const {
    if (!context_.Document.History.Current() || !zones.InColumns(at)) return Pointers.Chosen();
    if (zones.InThumb(at) || zones.InTimeScale(at)) return GrabPointer();
    if (zones.InEdges(at)) return MarkerZonePointer();
    const editor::ChannelSwitches& switches = context_.Document.Channels;
    if (!zones.InLanes(at) || context_.Document.Format.Channels != 2) return Pointers.Chosen();
    int channel = -1;
    if (switches.VisibleCount == 1)
        channel = switches.Visible[0] != 0 ? 0 : 1;
    else if (switches.VisibleCount == 2)
        channel = switches.OperationCount == 2 ? zones.EighthOf(at) : zones.HalfOf(at);
    if (channel < 0) return Pointers.Chosen();
    return channel == 0 ? LeftChannelPointer() : RightChannelPointer();
}

}  // namespace mavrin2::view
