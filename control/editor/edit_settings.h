#pragma once

#include <cstdint>
#include <filesystem>

namespace mavrin2::editor {

// What hosts choose for edits, and what Undo has to know of the last one.
struct EditSettings {
    std::filesystem::path TempDirectory;  // absolute, ends in the system's separator
    std::filesystem::path TempFileName;   // the editor's own clipboard
    std::int32_t FileBufferSize = 10001;  // milliseconds of sound moved at a time
    std::int32_t LastStepCount = 0;       // states that the next Undo or Redo moves over
    bool BatchMode = false;
};

}  // namespace mavrin2::editor
