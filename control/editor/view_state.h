#pragma once

#include <algorithm>
#include <cstdint>

#include "control/interfaces/enumerations.h"

// What mouse, playback and picture share. Columns are those of the wave area.

namespace mavrin2::editor {

// How the curve between single samples is drawn.
enum class InterpolationMode : std::int16_t {
    Parabola = 1,  // through three samples at a time; quick, while sound plays
    Spline = 2     // a natural cubic spline
};

// Where playback is, and how.
struct PlayState {
    std::int32_t PlayColumn = 0;
    // Of the last Play.
    interfaces::PlayTypeConstants PlayMode = interfaces::PlayTypeConstants::PLAYTOEND;
    InterpolationMode Interpolation = InterpolationMode::Spline;
};

// How the picture follows a recording: 1 shows the last seconds of the document, 2 the sound that
// arrives, 3 only that time passes.
struct RecordState {
    static constexpr std::int16_t LastSeconds = 1;
    static constexpr std::int16_t LiveSound = 2;
    static constexpr std::int16_t CenterLine = 3;

    std::int16_t RecordVisualizationType = LiveSound;  // as a host chose
    std::int16_t VisualizationInUse = LiveSound;       // lowered where the system is too slow

    void Choose(std::int16_t type) {
        RecordVisualizationType = VisualizationInUse = std::clamp(type, LastSeconds, CenterLine);
    }
};

// The columns that the selection covers, 0 … the wave area's width; both 0 when it is out of view.
struct SelectionColumns {
    std::int32_t Start = 0;
    std::int32_t End = 0;
};

enum class DragMode : std::int16_t {
    None = 0,
    Selecting = 1,
    Thumb = 2,
    TimeScale = 4,
    CueMarker = 7,
    RangeStart = 8,
    RangeEnd = 9,
    CutPoint = 10,
    SelectionEdge = 11
};

// What the mouse is dragging.
struct DragState {
    DragMode Mode = DragMode::None;
    std::int32_t AnchorColumn = 0;  // that of the selection's end which stays
};

}  // namespace mavrin2::editor
