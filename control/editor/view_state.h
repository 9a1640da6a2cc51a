#pragma once

#include <cstdint>

// What mouse, playback and picture share. Columns are those of the wave area.

namespace mavrin2::editor {

// Where playback is.
struct PlayState {
    std::int32_t PlayColumn = 0;
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
};

}  // namespace mavrin2::editor
