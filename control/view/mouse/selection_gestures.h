#pragma once

#include "control/view/mouse/channel_choice.h"
#include "control/view/mouse/gesture.h"

namespace mavrin2::view {

// One end of the selection follows the mouse, the other one stays where it is.
class SelectionGesture : public Gesture {
public:
    SelectionGesture(MouseContext& context, editor::DragMode mode, std::int32_t anchor)
        : Gesture(mode), context_(context) {
        context.Drag.AnchorColumn = anchor;
    }

protected:
    // Where the mouse has moved by `threshold` columns at least. False when it has not.
    bool MoveEnd(std::int32_t column, std::int32_t threshold);

    MouseContext& context_;
};

// Selecting, from where the button was pressed in a lane.
class Selecting final : public SelectionGesture {
public:
    // The cursor goes to the place pressed, and nothing is selected.
    Selecting(MouseContext& context, ChannelChoice& channels, Point at);

    void Show() override;
    void Move(Point at, const MouseZones& zones) override;
    bool IsClick() const override;
    // A click leaves no selection: it sets the cursor.
    void Release() override;

private:
    ChannelChoice& channels_;
};

// Moving an edge of the selection, taken in the bands above and below the lanes.
class SelectionEdge final : public SelectionGesture {
public:
    SelectionEdge(MouseContext& context, std::int32_t anchor)
        : SelectionGesture(context, editor::DragMode::SelectionEdge, anchor) {}

    // Null where no edge is.
    static std::unique_ptr<Gesture> TakenAt(MouseContext& context, Point at);

    void Move(Point at, const MouseZones& zones) override;
};

}  // namespace mavrin2::view
