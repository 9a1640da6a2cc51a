#pragma once

#include <cstdint>

#include "platform/files.h"

namespace mavrin2::dusoro {

// The length in sample frames that the header of a WAV, RF64, Wave64, AIFF, AU or CAF file states,
// `present` of which are there: libsndfile gives only those. A frame has `frameBytes`, or 0 where
// frames have no size. For other files, and for lengths that were never filled in, it is what is
// there.
std::int64_t StatedFrames(platform::File& file, std::int64_t present, std::int64_t frameBytes);

}  // namespace mavrin2::dusoro
