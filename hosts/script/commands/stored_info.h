#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "hosts/binding/late_binding.h"

namespace mavrin2::script {

// A tag as the command line names it.
struct Tag {
    const char* Name;
    const char* Property;  // of the objects that have it
    bool IsNumber;         // 0 for none; otherwise a text
    enum class Subject { Sound, File } Describes = Subject::Sound;
};
// All of them, in the order in which they are shown.
std::span<const Tag> Tags();

// What a tag of a sound is, as text; empty if it has none. `object` is the control's FileInfo or
// the information companion.
std::string TagText(const binding::LateBound& object, const Tag& tag);

struct FileMarker {
    std::int32_t Position = 0;  // sample frames
    std::int32_t Length = 0;    // sample frames
    std::string Label;
    std::string Note;
    std::string Text;
    std::array<std::int32_t, 4> Numbers = {};  // country, language, dialect, code page of Text
};

// Tags and markers of sound files, which are read and written without the sound. Members throw
// Failure, called after the file, or CallError.
class StoredInfo {
public:
    // Those of `file`.
    explicit StoredInfo(const std::string& file);

    std::string Text(const Tag& tag) const { return TagText(companion_, tag); }
    // False if the tag does not take that text. An empty one removes the tag.
    bool Put(const Tag& tag, const std::string& text) const;

    std::int32_t MarkerCount() const { return companion_.Number("InfoMarkerCount"); }
    std::vector<FileMarker> Markers() const;
    void PutMarkers(std::span<const FileMarker> markers) const;

    // Writes them to `out`: a copy of the file that was read, or that file itself. An older file of
    // that name is replaced when the new one is complete.
    void WriteTo(const std::string& out) const;

private:
    binding::LateBound companion_;
    std::string file_;
};

// The sample rate of a sound file in hertz, without reading the sound.
std::int32_t SampleRateOf(const std::string& file);

}  // namespace mavrin2::script
