#pragma once

#include "companions/dusoro/sound/sound_reader.h"
#include "platform/files.h"

namespace mavrin2::dusoro {

// Whether an Ogg file consists of consecutive streams, as some radio stations and `cat`
// make them: its last page states the length of the last one only. Looks at the pages' headers, up
// to the first that is not where it should be.
bool IsChainedOgg(platform::File& file);

// What is wrong with the pages of an Ogg file: wrong checksums, missing pages, bytes in between, a
// last page that does not end its stream.
SourceFaults CheckOgg(platform::File& file);

}  // namespace mavrin2::dusoro
