#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

#include "control/editor/markers/marker_list.h"
#include "control/signal/quantity.h"

namespace mavrin2::editor {

using signal::Bytes;

// View and selection at one depth of zooming, as byte offsets into the samples.
struct ZoomLevel {
    Bytes StartView;
    Bytes EndView;
    Bytes StartSelect;
    Bytes EndSelect;
    Bytes SelectDragEnd;  // the selection's end as last placed by the mouse
};

// The zoom levels of a version. Those that were never used take no memory and read as zeros.
class ZoomHistory {
public:
    // Makes the level where it is missing; references to other levels are void then.
    ZoomLevel& operator[](std::size_t level) {
        if (level >= levels_.size()) levels_.resize(level + 1);
        return levels_[level];
    }
    ZoomLevel operator[](std::size_t level) const {
        return level < levels_.size() ? levels_[level] : ZoomLevel();
    }

private:
    std::vector<ZoomLevel> levels_;
};

// One version of the document. Level 0 shows the whole document.
struct DocumentState {
    static constexpr std::int32_t ZoomLevels = 100;  // at most

    std::filesystem::path WorkFilePath;
    Bytes TotalBytes;
    ZoomHistory Zoom;
    std::int32_t ZoomIndex = 0;
    std::int16_t Selected = 0;  // the editor stores 1, hosts what they like
    std::int32_t Depth = 0;     // 1 for the oldest version, one more for each newer one
    Bytes PlayPosition;
    std::int32_t Frequency = 0;
    std::int32_t Channels = 0;
    MarkerList Markers;

    // The history's own links: a version owns the newer one.
    std::unique_ptr<DocumentState> Next;
    DocumentState* Prev = nullptr;

    ZoomLevel& Level() { return Zoom[static_cast<std::size_t>(ZoomIndex)]; }
    ZoomLevel Level() const { return Zoom[static_cast<std::size_t>(ZoomIndex)]; }
};

}  // namespace mavrin2::editor
