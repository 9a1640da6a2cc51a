#pragma once

#include <memory>
#include <optional>

#include "control/processing/playback.h"
#include "control/view/display.h"
#include "control/view/mouse/channel_choice.h"
#include "control/view/mouse/gesture.h"
#include "control/view/mouse/marker_gestures.h"
#include "control/view/mouse/pointers.h"
#include "control/view/style.h"
#include "control/view/zoom.h"
#include "platform/control_window.h"

namespace mavrin2::view {

// What a host chooses of the mouse. Flags are 0 or what it has written.
struct MouseSettings {
    std::int16_t MouseEventsEnabled = 1;  // the mouse edits
};

// What the handler works with besides what gestures do.
struct MouseHandlerServices {
    MouseContext Context;
    MarkerTargets Markers;
    Style& HostStyle;
    Display& Screen;
    Zoom& Zooming;
    editor::Activity& Activity;
    processing::Playback& Player;
    const editor::PlayState& Play;
    const MouseSettings& Settings;
    platform::FileSystem& Files;
};

// Turns what the mouse does into gestures and events. Its caller keeps the control alive meanwhile.
class MouseHandler {
public:
    explicit MouseHandler(const MouseHandlerServices& services);
    MouseHandler(const MouseHandler&) = delete;
    MouseHandler& operator=(const MouseHandler&) = delete;

    void Handle(const platform::MouseEvent& event);
    // Something else has captured the mouse: the button counts as released where it was last.
    void CaptureLost();

    view::Pointers Pointers;

private:
    void LeftDown(Point at);
    void LeftUp(Point at);
    void LeftDoubleClick(Point at);
    void RightDown(Point at);
    void RightUp(Point at);
    void RightDoubleClick(Point at);
    void Move(Point at, int held);
    void Wheel(int turn);

    MouseZones Zones() const;
    bool Edits() const { return services_.Settings.MouseEventsEnabled != 0; }
    // A long operation is running: nothing may change.
    bool Busy() const;
    // The document under a gesture, null where none may change anything.
    editor::DocumentState* Editable() const { return Busy() ? nullptr : context_.Sound(); }

    std::shared_ptr<Gesture> GestureAt(const MouseZones& zones, Point at);
    std::shared_ptr<Gesture> BeginSelecting(const MouseZones& zones, Point at);
    void Begin(const std::shared_ptr<Gesture>& gesture);
    std::shared_ptr<Gesture> EndGesture();
    void StopPastSelection();
    void ExtendSelection(Point at);
    void ShowPointer(const MouseZones& zones, Point at);
    const platform::Pointer& PointerAt(const MouseZones& zones, Point at) const;

    MouseHandlerServices services_;
    MouseContext& context_;
    ChannelChoice channels_;
    MarkerMouse markers_;
    std::shared_ptr<Gesture> gesture_;  // null: none is under way
    platform::MouseEvent last_;
};

}  // namespace mavrin2::view
