#pragma once

#include <cstdint>
#include <filesystem>

namespace mavrin2::editor {

// What hosts choose for edits.
struct EditSettings {
    std::filesystem::path TempDirectory;  // absolute, ends in the system's separator
    std::filesystem::path TempFileName;   // the editor's own clipboard
    std::int32_t FileBufferSize = 10001;  // milliseconds of sound moved at a time
    // Pasted sound fades in over the sound that it replaces or follows.
    std::int16_t SmoothEnabled = 1;
    std::int32_t SmoothTime = 10;  // milliseconds
};

// How far Undo and Redo move.
struct UndoSteps {
    std::int32_t LastStepCount = 0;  // versions that the next Undo or Redo passes
    bool BatchMode = false;          // changes are counted as one step and not drawn
};

}  // namespace mavrin2::editor
