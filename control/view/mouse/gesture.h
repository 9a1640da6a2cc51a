#pragma once

#include "control/editor/view_state.h"
#include "control/view/mouse/mouse_context.h"
#include "control/view/mouse/zones.h"

namespace mavrin2::view {

// What the user does while the left button is held.
class Gesture {
public:
    explicit Gesture(editor::DragMode mode) : mode_(mode) {}
    Gesture(const Gesture&) = delete;
    Gesture& operator=(const Gesture&) = delete;
    virtual ~Gesture() = default;

    // What the host's picture shows of it.
    editor::DragMode Mode() const { return mode_; }

    // Draws what it has changed when it began.
    virtual void Show() {}
    // The mouse was moved, in a document with sound. Events come last: in them a host may end the
    // gesture or close the document.
    virtual void Move(Point at, const MouseZones& zones) = 0;
    // Whether the mouse has hardly moved since the button was pressed.
    virtual bool IsClick() const { return false; }
    // The button was released, in a document with sound.
    virtual void Release() {}

    // Another gesture has begun, or the button was released inside an event.
    void End() { over_ = true; }
    bool Over() const { return over_; }

protected:
    void ChangeMode(editor::DragMode mode) { mode_ = mode; }

private:
    editor::DragMode mode_;
    bool over_ = false;
};

}  // namespace mavrin2::view
