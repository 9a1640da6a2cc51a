#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "companions/ontiva/info/fields.h"

namespace mavrin2::ontiva {

// A mark on a sound. Texts are UTF-8.
struct Marker {
    std::int32_t Position = 0;  // sample frames from the start of the sound, not negative
    std::int32_t Length = 0;    // sample frames, not negative; 0 for a mark at one frame
    std::string Label;
    std::string Note;
    std::string Text;
    std::array<std::int32_t, 4> Numbers{};  // country, language, dialect, code page of the text

    bool operator==(const Marker&) const = default;
};

struct Picture {
    std::int32_t Type = 0;  // as in ID3v2 and FLAC: 3 is the front cover
    std::string Mime;
    std::string Description;
    std::string Data;

    bool operator==(const Picture&) const = default;
};

// What a file holds beside its sound.
struct SoundInfo {
    Fields Texts;
    std::vector<Picture> Pictures;
    // Whole ID3v2.4 frames that are neither texts nor pictures, such as ratings; they go into files
    // that hold ID3v2 tags.
    std::vector<std::string> Frames;
    std::vector<Marker> Markers;  // in list order
    // The second number of the ID3v2 tag that was read, 1 for ID3v1 alone, 0 for none.
    std::int16_t TagVersion = 0;
    // That of ID3v2 tags to be written, 3 or 4.
    std::int16_t WantedVersion = 3;

    // Whether a file would hold anything for it.
    bool Empty() const {
        return Texts.Empty() && Pictures.empty() && Frames.empty() && Markers.empty();
    }
};

}  // namespace mavrin2::ontiva
