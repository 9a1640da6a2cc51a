#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace mavrin2::ontiva {

// The texts of a tag by name, in UTF-8: "TITLE", "ARTIST", … as Vorbis comments name them, in upper
// case. A name may have several values.
class Fields {
public:
    using Values = std::vector<std::string>;
    using Map = std::map<std::string, Values, std::less<>>;

    // The first value, or an empty text.
    const std::string& First(std::string_view name) const;
    // All values as one text.
    std::string Joined(std::string_view name) const;
    // No values for a name without any.
    const Values& All(std::string_view name) const;
    // One value instead of all; an empty one removes the name.
    void Set(std::string_view name, std::string value);
    void SetAll(std::string_view name, Values values);
    void Add(std::string_view name, std::string value);
    void Erase(std::string_view name);

    bool Empty() const { return map_.empty(); }
    const Map& Entries() const { return map_; }
    bool operator==(const Fields&) const = default;

private:
    Map map_;
};

// What a program shows and edits directly; everything else in a tag only travels along.
inline constexpr std::string_view kPublicNames[] = {
    "TITLE", "ARTIST",      "ALBUM",     "DATE",      "COMMENT", "COMPOSER",
    "URL",   "TRACKNUMBER", "ENCODEDBY", "COPYRIGHT", "GENRE",   "ORIGINALARTIST"};

// Moves values under another name in use to the name listed above.
void AdoptUsualNames(Fields& fields);

// Whether a field describes the music, and goes with it into another file. Those on loudness,
// length and encoder describe one file.
bool Travels(std::string_view name);

// What a file with the fields `present` holds after `edited` was written to it: public fields as
// edited, the travelling ones that were brought along, and the file's own others.
Fields Merge(const Fields& present, const Fields& edited);

}  // namespace mavrin2::ontiva
