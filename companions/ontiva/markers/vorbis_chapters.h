#pragma once

#include "companions/ontiva/info/sound_info.h"

namespace mavrin2::ontiva {

// Markers among Vorbis comments: CHAPTER001=00:00:01.500 and CHAPTER001NAME=…, which players show,
// for the first 999 markers, and for every marker a line with all of it (see exact_marker.h) as a
// value of MAVRIN2_MARKER. `rate` is that of the sound in hertz, above 0.

// Takes the comments about markers out of `comments`. `found` says whether there were any, be it
// that there are no markers.
std::vector<Marker> TakeVorbisChapters(Fields& comments, std::int32_t rate, bool& found);

// Adds comments to some that have none about markers. `mention` says that there are no markers,
// where the file holds others elsewhere.
void AddVorbisChapters(Fields& comments, const std::vector<Marker>& markers, std::int32_t rate,
                       bool mention);

}  // namespace mavrin2::ontiva
