#pragma once

#include <taglib/id3v2frame.h>
#include <taglib/tpropertymap.h>

namespace mavrin2::ontiva {

// What TagLib offers for whole tags only and is needed of single frames.
struct FrameAccess : TagLib::ID3v2::Frame {
    // The version of the tag for which a frame is rendered.
    static void SetVersion(TagLib::ID3v2::Frame& frame, unsigned int version) {
        (frame.*(&FrameAccess::header))()->setVersion(version);
    }
    // Whether the frame is among the tag's texts.
    static bool HasTexts(const TagLib::ID3v2::Frame& frame) {
        return !(frame.*(&FrameAccess::asProperties))().isEmpty();
    }
};

}  // namespace mavrin2::ontiva
