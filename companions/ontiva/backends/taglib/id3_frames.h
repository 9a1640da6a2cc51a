#pragma once

#include <taglib/id3v2tag.h>

#include <string_view>

#include "companions/ontiva/markers/exact_marker.h"

namespace mavrin2::ontiva {

// An ID3v2 tag taken apart. The frames are found here and given to TagLib one by one, chapters
// never: it follows chapters within chapters as deep as a file says, and unpacks whatever is
// packed.
struct Id3Frames {
    explicit Id3Frames(std::string_view bytes);

    struct FoundChapter {
        ontiva::Chapter Times;
        std::optional<Marker> Exact;
        std::string Note;
    };

    TagLib::ID3v2::Tag Tag;  // without chapters
    std::vector<FoundChapter> Chapters;
    int Version = 0;       // the second number of the tag's version, 0 if it is no tag
    bool Complete = true;  // whether every frame could be kept
};

// The private frame within a chapter that has the exact marker.
inline constexpr char kExactOwner[] = "mavrin2/marker";

}  // namespace mavrin2::ontiva
