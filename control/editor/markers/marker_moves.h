#pragma once

#include <cstdint>
#include <vector>

#include "control/editor/markers/marker_list.h"
#include "control/signal/quantity.h"

namespace mavrin2::editor {

using signal::Bytes;

// Where two versions of a document differ: [OldStart, OldEnd) of the old one was left out, and the
// new one has [NewStart, NewEnd) in its place.
struct EditStretch {
    Bytes OldStart, OldEnd;
    Bytes NewStart, NewEnd;
};

// Both functions move the markers of a list along with the sound. They return the numbers, from 1,
// of those whose position or length comes out different; a result that is negative or has no 32
// bits is not stored.

// Markers after the stretch move by what the document has grown. Inside it they keep their relative
// position, and move to its start when nothing was written in its place.
std::vector<std::int32_t> AdjustMarkersAfterEdit(MarkerList& list, const EditStretch& stretch,
                                                 Bytes frameSize);

// For a document whose sample rate becomes `ratio` times what it was.
std::vector<std::int32_t> ScaleMarkers(MarkerList& list, double ratio);

}  // namespace mavrin2::editor
