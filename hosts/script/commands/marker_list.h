#pragma once

#include <cstdint>
#include <istream>
#include <span>
#include <string>
#include <vector>

#include "hosts/script/commands/stored_info.h"

namespace mavrin2::script {

// Lists of markers as other editors read and write them: a line for each, with start, end (seconds)
// and label, and tabs between them. Start and end of a cue are the same.

// Six digits after the point tell sample frames apart at every usual rate. A label's tabs and ends
// of lines become blanks.
std::string MarkerLines(std::span<const FileMarker> markers, std::int32_t rate);

// The markers of a list. Empty lines, and those that begin with a backslash and say more of the one
// before, are skipped. One that is also among `present` keeps what the list leaves out. Throws
// Failure, called after `name`, for a line that is not a marker.
std::vector<FileMarker> ReadMarkerList(std::istream& list, const std::string& name,
                                       std::int32_t rate, std::span<const FileMarker> present);

}  // namespace mavrin2::script
