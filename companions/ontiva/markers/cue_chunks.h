#pragma once

#include <bit>
#include <string>
#include <string_view>
#include <vector>

#include "companions/ontiva/info/sound_info.h"

namespace mavrin2::ontiva {

// The markers of a WAV file: the points of its `cue ` chunk, and in the `adtl` list, by the points'
// identifiers, labels (`labl`), notes (`note`) and texts with lengths (`ltxt`). All of a marker is
// kept exactly. Contents are those of chunks, without their headers, and may be damaged.

// `list` begins with "adtl".
std::vector<Marker> ReadCues(std::string_view cue, std::string_view list, std::endian order);

std::string RenderCues(const std::vector<Marker>& markers, std::endian order);
// Empty when no marker has anything beside its position.
std::string RenderCueTexts(const std::vector<Marker>& markers, std::endian order);

}  // namespace mavrin2::ontiva
