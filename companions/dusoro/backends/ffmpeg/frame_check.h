#pragma once

#include "companions/dusoro/sound/sound_reader.h"
#include "platform/files.h"

namespace mavrin2::dusoro {

// What is wrong with files that are nothing but frames, from their headers: bytes between frames
// that are no sound, an incomplete last frame.

// MPEG audio, layers I to III. Where an encoder has left a checksum of the sound in the first
// frame, as LAME does, changed bytes inside frames show too, except in files whose level another
// program has changed in place.
SourceFaults CheckMpeg(platform::File& file);

// AAC.
SourceFaults CheckAdts(platform::File& file);

}  // namespace mavrin2::dusoro
