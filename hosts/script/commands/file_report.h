#pragma once

#include <string>
#include <utility>
#include <vector>

#include "hosts/script/commands/sound_facts.h"
#include "hosts/script/commands/stored_info.h"

namespace mavrin2::script {

// What `info` shows of a sound file.
struct FileReport {
    std::string File;
    SoundFacts Sound;
    bool ExactLength = true;
    double Seconds = 0;
    double BitRate = 0;  // bit/s, of the whole file; 0 where it has no size
    std::vector<std::pair<std::string, std::string>> Tags;  // names and texts
    std::vector<FileMarker> Markers;

    double Frames() const { return Sound.Decoded ? Sound.DecodedFrames : Sound.Frames; }
};

// Throws Failure. `exact` decodes the sound, which takes time and finds damage; otherwise the
// length is that of the header.
FileReport ReportOf(const std::string& operand, bool exact);

// Lines with a name and a value each.
std::string AsText(const FileReport& report);
// An object.
std::string AsJson(const FileReport& report);

}  // namespace mavrin2::script
