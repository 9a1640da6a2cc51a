#pragma once

#include <taglib/id3v2tag.h>

#include "companions/ontiva/backends/taglib/id3_frames.h"
#include "companions/ontiva/libraries/libraries.h"

namespace mavrin2::ontiva {

// Markers as chapters: frames with times in milliseconds and a title, within which a private frame
// has the whole marker. `rate` is in hertz and above 0.

void ReadChapters(const Id3Frames& frames, std::int32_t rate, Id3Content& content);
// With a table of contents, to a tag that has no chapters. `version` is that of the tag.
void AddChapters(TagLib::ID3v2::Tag& tag, const std::vector<Marker>& markers, std::int32_t rate,
                 int version);

}  // namespace mavrin2::ontiva
