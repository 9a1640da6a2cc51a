#pragma once

#include <memory>
#include <optional>

#include "control/editor/markers/marker_display_list.h"
#include "control/editor/markers/marker_settings.h"
#include "control/editor/markers/markers.h"
#include "control/editor/positions.h"
#include "control/view/marker_tooltip.h"
#include "control/view/mouse/gesture.h"

namespace mavrin2::view {

// The markers that the mouse works with.
struct MarkerTargets {
    editor::Markers& Markers;
    editor::MarkerDisplayList& Shown;
    editor::Positions& Positions;
    const editor::MarkerSettings& Settings;
};

// Drags the current marker, or a part of it.
class MarkerGesture : public Gesture {
public:
    MarkerGesture(MouseContext& context, editor::Markers& markers, editor::DragMode mode)
        : Gesture(mode), context_(context), markers_(markers) {}

    void Move(Point at, const MouseZones& zones) final;
    void Release() final { Report(); }

protected:
    // To a position in the document.
    virtual void MoveTo(Bytes position) = 0;

    Bytes ToBytes(std::int64_t frames) const {
        return Bytes(frames * context_.Document.Format.FrameSize().Count());
    }
    std::int64_t ToFrames(Bytes position) const {
        return position.Count() / context_.Document.Format.FrameSize().Count();
    }

    MouseContext& context_;
    editor::Markers& markers_;

private:
    void Report();
};

// What a click in the bands above and below the lanes does with markers.
class MarkerMouse {
public:
    MarkerMouse(MouseContext& context, const MarkerTargets& targets, Display& screen)
        : context_(context), targets_(targets), tooltip_(targets.Settings, screen) {}

    // Selects the marker pressed and begins to drag it. Null where none is near.
    std::shared_ptr<Gesture> TakenAt(Point at);
    // The label of a marker there, once the mouse rests.
    void ShowTip(Point at) const;
    // Selects the nearest marker in view.
    void Click(Point at);
    // Deletes the marker there, or makes one.
    void DoubleClick(Point at);

private:
    // The nearest marker in view, and which parts of it are near enough to be taken.
    struct Hit {
        std::int32_t Number = 0;
        bool Range = false;
        bool Start = false;
        bool End = false;
        bool CutPoint = false;

        bool Near() const { return Start || End || CutPoint; }
    };
    std::optional<Hit> HitAt(Point at) const;
    bool Select(std::int32_t number);
    void Insert(Point at);

    MouseContext& context_;
    MarkerTargets targets_;
    MarkerTooltip tooltip_;
};

}  // namespace mavrin2::view
