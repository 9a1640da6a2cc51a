#pragma once

#include "platform/files.h"

namespace mavrin2::dusoro {

// Whether an Ogg file consists of consecutive streams, as some radio stations and `cat`
// make them: its last page states the length of the last one only. Looks at the pages' headers, up
// to the first that is not where it should be.
bool IsChainedOgg(platform::File& file);

// Whether the last page of an Ogg file is marked as that of its stream.
bool EndsAsOgg(platform::File& file);

}  // namespace mavrin2::dusoro
