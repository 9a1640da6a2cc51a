#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "companions/ontiva/info/sound_info.h"

namespace mavrin2::ontiva {

// The `MARK` chunk of an AIFF file: positions and short labels. `content` may be damaged.
std::vector<Marker> ReadMarks(std::string_view content);

// The first kMostMarks of the markers, their labels cut to 255 bytes.
std::string RenderMarks(const std::vector<Marker>& markers);

// Identifiers are 16-bit numbers above 0.
inline constexpr std::size_t kMostMarks = 32767;
inline constexpr std::size_t kLongestMarkLabel = 255;

}  // namespace mavrin2::ontiva
