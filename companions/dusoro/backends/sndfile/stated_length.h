#pragma once

#include <cstdint>

#include "platform/files.h"

namespace mavrin2::dusoro {

// The length in sample frames that the header of a WAV or AIFF file states, `present` of which are
// there: libsndfile gives only those. For other files, and for lengths that were never filled in,
// it is what is there.
std::int64_t StatedFrames(platform::File& file, std::int64_t present);

}  // namespace mavrin2::dusoro
